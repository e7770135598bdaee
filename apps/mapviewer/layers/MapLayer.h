#pragma once

#include "apps/mapviewer/layers/Legend.h"
#include "apps/mapviewer/layers/MapView.h"

#include "vomap/VOColorRamp.h"

#include <QPainter>
#include <QRectF>
#include <QString>

#include <memory>

namespace mapviewer {

/// How values become colours.
enum class Grading {
    Continuous,     ///< the ramp stretched from the smallest to the greatest value
    EqualIntervals, ///< classes of one width
    Quantiles,      ///< classes of one size
    UniqueValues    ///< one colour for each value
};

/// What a layer has at one place of the map.
struct Reading
{
    bool found = false;
    QString text;   ///< "1,204 m", or "Brazil: 8,717"
    QRgb color = 0; ///< the colour that stands for it in the legend; without any shading
};

/// One sheet of the map, coloured by a ramp.
class MapLayer
{
public:
    MapLayer(const MapLayer &) = delete;
    MapLayer &operator=(const MapLayer &) = delete;
    virtual ~MapLayer();

    QString title() const { return m_title; }
    /// Whom to thank for the data, in a picture's margin; may be empty.
    QString source() const { return m_source; }
    void setSource(const QString &text) { m_source = text; }
    bool isVisible() const { return visible; }
    void setVisible(bool on) { visible = on; }

    /// Takes a clone: the caller keeps \a ramp, which may be null for none. A ramp without colours
    /// makes everything light grey.
    void setRamp(VTObjects::VOColorRamp *ramp);

    Grading grading() const { return m_grading; }
    /// Ignored unless availableGradings() has it.
    void setGrading(Grading grading);
    virtual QVector<Grading> availableGradings() const = 0;
    /// For equal intervals and quantiles; from 2 to 12, other numbers are cut.
    int classCount() const { return m_classCount; }
    void setClassCount(int count);

    /// In map units; top() is the southern edge.
    virtual QRectF extent() const = 0;
    virtual void paint(QPainter *painter, const MapView &view) const = 0;
    virtual Legend legend() const = 0;
    virtual Reading readingAt(const QPointF &position) const = 0;

protected:
    explicit MapLayer(const QString &title);
    VTObjects::VOColorRamp *ramp() const { return m_ramp.get(); }
    /// Ramp, grading or number of classes have changed: makes classes and colours anew.
    virtual void recolor() = 0;

private:
    QString m_title;
    QString m_source;
    std::unique_ptr<VTObjects::VOColorRamp> m_ramp;
    Grading m_grading = Grading::Continuous;
    int m_classCount = 7;
    bool visible = true;
};

} // namespace mapviewer
