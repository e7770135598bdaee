#pragma once

#include "vomap/VOColorRamp.h"

#include <QVector>

#include <cstddef>

namespace VTObjects {

/// Holds a ramp's output colours and implements the list operations on them.
///
/// Copies share the list until one of them is written. Components are finite and lie from 0 to
/// 255: what is set outside is clamped, and what is no number counts as 0.
class VOMAP_EXPORT VOColorRampContainer : public VOColorRamp
{
public:
    ~VOColorRampContainer() override;

    rgb_color<float> getColor(unsigned int index) override;
    void setColor(unsigned int index, rgb_color<float> color) override;
    void addColor(rgb_color<float> color) override;
    void deleteColor(unsigned int index) override;
    void deleteAll() override;
    unsigned int getLevel() override;

    /// Replaces the whole output list by a copy of `count` colours at once.
    void setColors(const rgb_color<float> *replacement, std::size_t count);

protected:
    VOColorRampContainer() = default;
    VOColorRampContainer(const VOColorRampContainer &) = default;
    VOColorRampContainer &operator=(const VOColorRampContainer &) = default;

    /// The colour with every component brought into 0..255.
    static rgb_color<float> clamped(rgb_color<float> color);

    QVector<rgb_color<float>> colors;
};

} // namespace VTObjects
