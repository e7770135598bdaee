#pragma once

#include "apps/mapviewer/layers/Legend.h"
#include "apps/mapviewer/layers/MapView.h"

#include "vomap/VOColorRamp.h"

#include <QPainter>
#include <QRectF>
#include <QString>

#include <memory>

namespace mapviewer {

/// How values become colours: unclassed, or by the classes of a method.
enum class ClassificationMethod {
    Unclassed,      ///< the ramp stretched from the smallest to the greatest value
    EqualIntervals, ///< classes of one width
    Quantiles,      ///< classes of one size
    UniqueValues    ///< one colour for each value
};

/// What a layer has at one place of the map.
struct IdentifyResult
{
    bool found = false;
    QString text;   ///< "1,204 m", or "Brazil: 8,717"
    QRgb color = 0; ///< the colour that stands for it in the legend; without any shading
};

/// One layer of the map, coloured by a ramp.
class MapLayer
{
public:
    /// What classCount() may be.
    static constexpr int fewestClasses = 2;
    static constexpr int mostClasses = 12;

    MapLayer(const MapLayer &) = delete;
    MapLayer &operator=(const MapLayer &) = delete;
    virtual ~MapLayer();

    QString title() const { return m_title; }
    /// Whom to thank for the data, in a picture's margin; may be empty.
    QString source() const { return m_source; }
    void setSource(const QString &text) { m_source = text; }
    /// The file that it was read from; empty for none.
    QString path() const { return m_path; }
    void setPath(const QString &file) { m_path = file; }
    bool isVisible() const { return visible; }
    void setVisible(bool on) { visible = on; }

    /// Takes a clone: the caller keeps `ramp`, which may be null for none. A ramp without colours
    /// makes everything light grey.
    void setRamp(VTObjects::VOColorRamp *ramp);

    ClassificationMethod classificationMethod() const { return m_method; }
    /// Ignored unless availableMethods() has it.
    void setClassificationMethod(ClassificationMethod method);
    virtual QVector<ClassificationMethod> availableMethods() const = 0;
    /// For equal intervals and quantiles; numbers out of range are cut.
    int classCount() const { return m_classCount; }
    void setClassCount(int count);

    /// In map units; top() is the southern edge.
    virtual QRectF extent() const = 0;
    virtual void paint(QPainter *painter, const MapView &view) const = 0;
    virtual Legend legend() const = 0;
    virtual IdentifyResult identify(const QPointF &position) const = 0;

protected:
    explicit MapLayer(const QString &title);
    VTObjects::VOColorRamp *ramp() const { return m_ramp.get(); }
    /// Ramp, classification method or number of classes have changed: makes classes and colours
    /// anew.
    virtual void recolor() = 0;

private:
    QString m_title;
    QString m_source;
    QString m_path;
    std::unique_ptr<VTObjects::VOColorRamp> m_ramp;
    ClassificationMethod m_method = ClassificationMethod::Unclassed;
    int m_classCount = 7;
    bool visible = true;
};

} // namespace mapviewer
