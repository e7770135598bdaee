#pragma once

#include "vomap/VOColorRamp.h"

#include <QVector>

Q_DECLARE_TYPEINFO(VTObjects::rgb_color<float>, Q_PRIMITIVE_TYPE);

namespace VTObjects {

/// Holds a ramp's output colours and implements the list operations on them.
///
/// Copies share the list until one of them is written. Components are finite and lie from 0 to
/// 255: what is set outside is clamped, and what is no number counts as 0.
class VOMAP_EXPORT VOColorRampContainer : public VOColorRamp
{
public:
    ~VOColorRampContainer() override;

    using VOColorRamp::getColor;
    using VOColorRamp::getLevel;
    rgb_color<float> getColor(unsigned int index) override;
    void setColor(unsigned int index, rgb_color<float> color) override;
    void addColor(rgb_color<float> color) override;
    void deleteColor(unsigned int index) override;
    void deleteAll() override;
    unsigned int getLevel() override;

    /// The whole output list at once, shared and not copied.
    const QVector<rgb_color<float>> &colorList() const { return colors; }
    void setColorList(QVector<rgb_color<float>> list);

protected:
    VOColorRampContainer() = default;
    VOColorRampContainer(const VOColorRampContainer &) = default;
    VOColorRampContainer &operator=(const VOColorRampContainer &) = default;

    /// The colour with every component brought into 0..255.
    static rgb_color<float> clamped(rgb_color<float> color);
    /// The list with every colour like that: the same list where nothing has to change.
    static QVector<rgb_color<float>> clamped(QVector<rgb_color<float>> list);

    QVector<rgb_color<float>> colors;
};

} // namespace VTObjects
