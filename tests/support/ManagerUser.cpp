#include "tests/support/ManagerUser.h"

#include "colorscheme/manager/WorkingCopies_p.h"
#include "tests/support/TestStore.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QtTest>

ManagerUser::ManagerUser(VTColorSchemeManager &manager)
    : tree(manager.findChild<QTreeView *>(QStringLiteral("teamView")))
    , table(manager.findChild<VTColorSchemeView *>(QStringLiteral("schemeView")))
    , model(table->schemeModel())
    , ok(manager.findChild<QPushButton *>(QStringLiteral("pushButton_ok")))
    , cancel(manager.findChild<QPushButton *>(QStringLiteral("pushButton_cancel")))
    , manager(manager)
{
}

QModelIndex ManagerUser::node(int team, int group) const
{
    const QModelIndex root = tree->model()->index(team, 0);
    return group < 0 ? root : tree->model()->index(group, 0, root);
}

void ManagerUser::click(int team, int group)
{
    const QModelIndex index = node(team, group);
    tree->scrollTo(index);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                      tree->visualRect(index).center());
}

QStringList ManagerUser::groups(int team) const
{
    QStringList texts;
    const QModelIndex root = node(team);
    for (int row = 0; row < tree->model()->rowCount(root); ++row)
        texts.append(node(team, row).data().toString());
    return texts;
}

void ManagerUser::command(const char *action)
{
    manager.findChild<QAction *>(QLatin1String(action))->trigger();
}

void ManagerUser::select(const QVector<int> &rows)
{
    table->clearSelection();
    selectRows(*table, rows);
}

QMenu *ManagerUser::contextMenu(int row)
{
    const QPoint place = table->visualRect(model->index(row, 1)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, table->viewport()->mapToGlobal(place));
    QApplication::sendEvent(table->viewport(), &event);
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

QStringList ManagerUser::names() const
{
    return schemeNames(model->group());
}

void selectRows(VTColorSchemeView &view, const QVector<int> &rows)
{
    for (const int row : rows)
        view.selectionModel()->select(view.schemeModel()->index(row, 0),
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

const VTObjects::VOColorSchemeTeam &workingCopy(const VTColorSchemeManager &manager, int team)
{
    return *manager.workingCopies().team(team);
}

ModalDriver::Handler pressNamed(const QString &name)
{
    return [name](QWidget *dialog) {
        auto *button = dialog->findChild<QPushButton *>(name);
        QVERIFY(button);
        QTest::mouseClick(button, Qt::LeftButton);
    };
}

ModalDriver::Handler pressText(const QString &text)
{
    return [text](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        for (QAbstractButton *button : box->buttons()) {
            if (button->text() == text) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        QFAIL("no such button");
    };
}

ModalDriver::Handler pressStandard(QMessageBox::StandardButton button)
{
    return [button](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY2(box, window->metaObject()->className());
        box->button(button)->click();
    };
}

ModalDriver::Handler expectBox(const QString &title, const QString &text,
                               QMessageBox::StandardButton button)
{
    return [=](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), title);
        QCOMPARE(box->text(), text);
        QCOMPARE(box->icon(), QMessageBox::Information);
        QCOMPARE(box->standardButtons(), QMessageBox::StandardButtons(button));
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    };
}

ModalDriver::Handler choose(const QStringList &paths)
{
    return [paths](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        QVERIFY(dialog);
        auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        QVERIFY(name);
        name->setText(paths.size() == 1 ? paths.first()
                                        : QLatin1Char('"') + paths.join(QStringLiteral("\" \"")) +
                                              QLatin1Char('"'));
        QMetaObject::invokeMethod(dialog, "accept");
    };
}
