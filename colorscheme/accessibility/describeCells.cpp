#include "colorscheme/accessibility/describeCells_p.h"

#include "colorscheme/accessibility/CellDescriber_p.h"
#include "colorscheme/accessibility/DescribedTable_p.h"

#include <QTableView>

namespace vtcontrolcolorscheme {

namespace {

QAccessibleInterface *describedTable(const QString & /*className*/, QObject *object)
{
    auto *table = qobject_cast<QTableView *>(object);
    const auto *describer =
        table ? table->findChild<CellDescriber *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
    return describer ? new DescribedTable(table, describer->describe) : nullptr;
}

} // namespace

void describeCells(QTableView *table, CellDescription describe)
{
    QAccessible::installFactory(describedTable); // once in the process, however often it is called
    // Setting a model makes the toolkit's own interface when somebody listens already.
    if (QAccessibleInterface *former = QAccessible::queryAccessibleInterface(table))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(former));
    new CellDescriber(table, std::move(describe));
}

} // namespace vtcontrolcolorscheme
