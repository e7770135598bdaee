#include "vtcontrolbase/swatchColors_p.h"

namespace vtcontrolbase {

namespace {

constexpr int columns = 12;

// Twelve hues at the HSV angles 0, 25, 40, 60, 90, 120, 160, 180, 205, 235, 275 and 315 degrees:
// closer together where the eye tells hues apart best. Below the pure hues each row has one
// lightness in the OKLab space (0.94, 0.86, 0.76, 0.64, 0.52, 0.40) and each column one OKLab hue,
// with 92 % of the chroma that sRGB can show there, at most 0.17. So the colours of a row are
// equally light for the eye, which equal HSV values are not.
// OKLab: B. Ottosson, "A perceptual color space for image processing", 2020.
// clang-format off
constexpr QRgb table[] = {
    0x000000, 0x171717, 0x2e2e2e, 0x464646, 0x5d5d5d, 0x747474, 0x8b8b8b, 0xa2a2a2, 0xb9b9b9, 0xd1d1d1, 0xe8e8e8, 0xffffff,
    0xff0000, 0xff6a00, 0xffaa00, 0xffff00, 0x80ff00, 0x00ff00, 0x00ffaa, 0x00ffff, 0x0095ff, 0x0015ff, 0x9500ff, 0xff00bf,
    0xfde5e1, 0xfde5db, 0xfde7cc, 0xf3f45c, 0xc8feaf, 0xc3febe, 0xb9fed8, 0xa6fefc, 0xdeedfd, 0xe2ebfd, 0xeee7fd, 0xfde2f1,
    0xfcc0b7, 0xfcc2a9, 0xfcc680, 0xd9da3b, 0x9cea74, 0x8aed83, 0x4ef2aa, 0x3eecec, 0xb1d5fb, 0xbcd1fb, 0xd9c6fb, 0xfcbae0,
    0xfa8f7f, 0xf99262, 0xe9a02c, 0xb8b92d, 0x7dc953, 0x69cb63, 0x33cf8e, 0x33c8c8, 0x75b6f9, 0x8db0f9, 0xbf9cf9, 0xf981cc,
    0xe05b4b, 0xdc6320, 0xb97f21, 0x929221, 0x58a228, 0x42a53c, 0x26a470, 0x269f9f, 0x238fed, 0x5686f2, 0x9e6fe2, 0xd05ba6,
    0xb63327, 0xa74916, 0x8c5e16, 0x6d6e16, 0x3f7a17, 0x1a7f17, 0x1a7b53, 0x1a7777, 0x186bb4, 0x3561c9, 0x7a4aba, 0xa73581,
    0x87120b, 0x74310b, 0x61400c, 0x4b4b0c, 0x29540c, 0x0f570c, 0x0f5538, 0x0f5252, 0x0d497e, 0x153ca1, 0x592493, 0x7c115c,
};
// clang-format on
static_assert(sizeof(table) / sizeof(table[0]) % columns == 0, "whole rows");

} // namespace

QVector<QColor> swatchColors()
{
    QVector<QColor> colors;
    for (const QRgb rgb : table)
        colors.append(QColor(rgb));
    return colors;
}

int swatchColumns()
{
    return columns;
}

} // namespace vtcontrolbase
