#pragma once

#include "tests/support/ManagerUser.h"
#include "tests/support/TestStore.h"

#include "colorscheme/manager/VTLineEditWidget.h"

#include <QObject>
#include <QWindow>

#include <memory>

/// What the tests of editing in the table share: a manager in a real window, worked by mouse and
/// keyboard through the window system.
class RenamingTest : public QObject
{
    Q_OBJECT

protected:
    void setUp();
    void tearDown();

    QPoint cell(int row, int column) const;
    void clickAt(QWidget *widget, const QPoint &place);
    void edit(int row, int column = 2);
    void type(const QString &text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// The field in the table; null if nothing is edited.
    VTLineEditWidget *editor() const;
    QString warning() const;

    std::unique_ptr<TestStore> store;
    std::unique_ptr<VTColorSchemeManager> manager;
    std::unique_ptr<ManagerUser> user;
    QWindow *window = nullptr;
};
