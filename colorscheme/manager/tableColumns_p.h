#pragma once

#include <QSize>

namespace vtcontrolcolorscheme {

/// The columns of the scheme table.
enum TableColumn { NumberColumn, RampColumn, NameColumn, AuthorColumn, DescribeColumn };

/// The preview strips of the scheme table, in pixels.
constexpr QSize tablePreviewSize(260, 23);

} // namespace vtcontrolcolorscheme
