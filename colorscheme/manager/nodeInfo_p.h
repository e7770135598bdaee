#pragma once

#include "colorscheme/manager/ColorSchemeNodeInfo.h"

#include <QStandardItem>

namespace vtcontrolcolorscheme {

/// Where the items of the manager's tree keep their ColorSchemeNodeInfo.
constexpr int nodeInfoRole = Qt::UserRole + 1;

inline ColorSchemeNodeInfo nodeInfo(const QStandardItem *item)
{
    return item->data(nodeInfoRole).value<ColorSchemeNodeInfo>();
}

} // namespace vtcontrolcolorscheme
