#pragma once

#include <QObject>

class QTreeView;

namespace Ui {
class VTColorSchemeManagerBase;
}

namespace vtcontrolcolorscheme {

/// Lets a manager be worked with the keyboard alone. Tab goes from the tree through the tool bar to
/// the table and the buttons below; Return on a node of the tree shows its group, as a click does;
/// with the keyboard in the table, the commands on schemes have keys, which the tool-tips name.
///
/// The keys of a row itself, Return and F2, are the table's.
class ManagerKeys : public QObject
{
    Q_OBJECT
public:
    /// Belongs to the manager.
    ManagerKeys(const Ui::VTColorSchemeManagerBase &ui, QObject *manager);

    /// Names the keys in the tool-tips; again after the texts of the commands have changed.
    void nameKeys();

protected:
    /// Of the tree.
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    const Ui::VTColorSchemeManagerBase &ui;
    QTreeView *tree;
};

} // namespace vtcontrolcolorscheme
