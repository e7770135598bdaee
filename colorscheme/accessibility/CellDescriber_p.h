#pragma once

#include "colorscheme/accessibility/describeCells_p.h"

#include <QTableView>

#include <utility>

namespace vtcontrolcolorscheme {

/// What a table keeps of its describeCells() call: a child of it.
class CellDescriber : public QObject
{
    Q_OBJECT
public:
    CellDescriber(QTableView *table, CellDescription description)
        : QObject(table)
        , describe(std::move(description))
    {
    }

    const CellDescription describe;
};

} // namespace vtcontrolcolorscheme
