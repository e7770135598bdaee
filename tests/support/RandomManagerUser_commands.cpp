#include "tests/support/RandomManagerUser.h"

#include "colorscheme/manager/VTLineEditWidget.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QtTest>

namespace {

QString numbered(const QString &base, const QStringList &names)
{
    int max = 1;
    bool found = false;
    for (const QString &name : names) {
        if (!name.contains(base))
            continue;
        const int number = QString(name).remove(base).toInt();
        if (number >= max) {
            max = number;
            found = true;
        }
    }
    return base + QString::number(found ? max + 1 : 1);
}

void press(QWidget *window, const char *name)
{
    auto *button = window->findChild<QPushButton *>(QLatin1String(name));
    QVERIFY(button);
    button->click();
}

} // namespace

void RandomManagerUser::clickNode()
{
    const int team = below(3);
    const int group = below(user->groups(team).size() + 1) - 1;
    history += QStringLiteral(" click(%1,%2)").arg(team).arg(group);
    user->click(team, group);
    show(user->node(team, group));
}

void RandomManagerUser::moveCurrent()
{
    const Qt::Key key = oneIn(2) ? Qt::Key_Up : Qt::Key_Down;
    const int times = 1 + below(4);
    history += QStringLiteral(" move(%1x%2)").arg(key == Qt::Key_Up ? "up" : "down").arg(times);
    user->tree->setFocus();
    for (int i = 0; i < times; ++i)
        QTest::keyClick(user->tree, key);
}

void RandomManagerUser::addGroup()
{
    const bool accepted = !oneIn(4);
    const QString name = QStringLiteral("G%1").arg(++fresh);
    history += QStringLiteral(" addGroup(%1)").arg(accepted);
    answers->next([=](QWidget *dialog) {
        dialog->findChild<VTLineEditWidget *>()->lineEdit()->setText(name);
        press(dialog, accepted ? "pushButton_ok" : "pushButton_cancel");
    });
    user->command("actionAdd_group");
    if (!accepted)
        return;
    teams[1].append({name, {}});
    modified = true;
}

void RandomManagerUser::deleteGroup()
{
    const QModelIndex current = user->tree->currentIndex();
    const bool asks = current.parent() == user->node(1);
    const bool accepted = asks && !oneIn(4);
    history += QStringLiteral(" deleteGroup(%1)").arg(accepted);
    const int row = current.row();
    if (asks)
        answers->next(pressStandard(accepted ? QMessageBox::Ok : QMessageBox::Cancel));
    user->command("actionDelete_group");
    if (!accepted)
        return;
    teams[1].removeAt(row);
    if (kind == 1 && shown == row)
        shown = -1;
    else if (kind == 1 && shown > row)
        --shown;
    // Which node then is current is the tree's choice, and clicking it makes no difference.
    const QModelIndex now = user->tree->currentIndex();
    QVERIFY(now.isValid());
    show(now);
    modified = true;
}

void RandomManagerUser::copySchemes()
{
    const int team = below(2);
    const std::unique_ptr<QMenu> menu(team == 0 ? manager->defaultMenu() : manager->customMenu());
    const QList<QAction *> actions = menu->actions();
    if (actions.isEmpty())
        return;
    QAction *action = actions[below(actions.size())];
    const QVector<int> rows = user->table->selectedRowNumbers();
    history += QStringLiteral(" copy(%1,%2)").arg(action->text()).arg(rows.size());
    action->trigger();
    const int target = team == 0 ? (action->text() == QLatin1String("For DEM") ? 2 : 0)
                                 : user->groups(1).indexOf(action->text());
    const QStringList source = target < teams[0].size() ? teams[0][target].schemes : QStringList();
    QStringList &schemes = teams[team][target].schemes;
    for (const int row : rows) {
        QString name = table[row];
        if (schemes.contains(name))
            name = numbered(QStringLiteral("add_scheme"), team == 0 ? schemes : source);
        schemes.append(name);
    }
    modified = true;
}

void RandomManagerUser::addScheme()
{
    const QModelIndex current = user->tree->currentIndex();
    const bool opens = current.parent().isValid() && current.parent().row() < 2 && shown >= 0;
    const int answer = below(4);
    history += QStringLiteral(" addScheme(%1,%2)").arg(opens).arg(answer);
    if (opens)
        answers->next([answer](QWidget *editor) {
            if (answer == 0)
                press(editor, "pushButton_cancel");
            else if (answer == 1)
                QTest::keyClick(editor, Qt::Key_Escape);
            else
                press(editor, "pushButton_ok");
        });
    user->command("actionAdd_scheme");
    if (!opens || answer == 0)
        return;
    table.append(numbered(QStringLiteral("add_scheme"), table));
    if (answer > 1)
        modified = true;
}

void RandomManagerUser::editScheme()
{
    const int row = user->table->currentIndex().row();
    history += QStringLiteral(" edit(%1)").arg(row);
    const QString name = QStringLiteral("e%1").arg(++fresh);
    if (row >= 0)
        answers->next([name](QWidget *editor) {
            editor->findChild<VTLineEditWidget *>()->lineEdit()->setText(name);
            press(editor, "pushButton_ok");
        });
    user->command("actionEdit_scheme");
    if (row < 0)
        return;
    table[row] = name;
    modified = true;
}

void RandomManagerUser::deleteSchemes()
{
    const QVector<int> rows = user->table->selectedRowNumbers();
    history += QStringLiteral(" delete(%1)").arg(rows.size());
    const bool accepted = !oneIn(5);
    if (!rows.isEmpty())
        answers->next(pressStandard(accepted ? QMessageBox::Ok : QMessageBox::Cancel));
    user->command("actionDelete_scheme");
    if (rows.isEmpty() || !accepted)
        return;
    for (int i = rows.size() - 1; i >= 0; --i)
        table.removeAt(rows[i]);
    if (kind == 2 && table.isEmpty()) {
        teams[2].removeAt(shown);
        shown = -1;
        show(user->tree->currentIndex());
    }
    modified = true;
}

void RandomManagerUser::favorSchemes()
{
    // The menu offers this for built-in and custom groups only.
    if (kind == 2)
        return;
    const QVector<int> rows = user->table->selectedRowNumbers();
    history += QStringLiteral(" favor(%1)").arg(rows.size());
    user->table->onFavorite();
    if (shown < 0)
        return;
    const QString name = teams[kind][shown].name;
    int target = 0;
    while (target < teams[2].size() && teams[2][target].name != name)
        ++target;
    if (target == teams[2].size())
        teams[2].append({name, {}});
    for (const int row : rows)
        teams[2][target].schemes.append(table[row]);
    modified = true;
}

void RandomManagerUser::importSchemes()
{
    const QModelIndex current = user->tree->currentIndex();
    const bool childlessTeam =
        !current.parent().isValid() && current.row() > 0 && user->groups(current.row()).isEmpty();
    const bool opens = !childlessTeam && shown >= 0;
    history += QStringLiteral(" import(%1)").arg(opens);
    if (opens) {
        answers->next(choose({store.path("i1"), store.path("bad"), store.path("a")}));
        answers->next(pressStandard(QMessageBox::Close));
    }
    user->command("actionImport_scheme");
    if (!opens)
        return;
    for (const char *file : {"i1", "a"}) {
        const QString name = QLatin1String(file);
        table.append(table.contains(name) ? name + QStringLiteral("_1") : name);
    }
    modified = true;
}

void RandomManagerUser::exportSchemes()
{
    QStringList names;
    for (const int row : user->table->selectedRowNumbers())
        names.append(table[row] + QStringLiteral(".vcs"));
    history += QStringLiteral(" export(%1)").arg(names.size());
    const QString folder = store.path(QStringLiteral("exported"));
    QVERIFY(QDir(folder).removeRecursively());
    QVERIFY(QDir().mkdir(folder));
    if (!names.isEmpty())
        answers->next(choose({folder}));
    answers->next(pressStandard(names.isEmpty() ? QMessageBox::Close : QMessageBox::Ok));
    user->command("actionExport_scheme");
    names.removeDuplicates();
    names.sort();
    QCOMPARE(QDir(folder).entryList(QDir::Files, QDir::Name), names);
}

void RandomManagerUser::renameInPlace()
{
    if (table.isEmpty())
        return;
    const int row = below(table.size());
    const QString typed =
        oneIn(2) ? QStringLiteral("n%1").arg(++fresh) : table[below(table.size())];
    const int end = below(4);
    history += QStringLiteral(" rename(%1,%2,%3)").arg(row).arg(typed).arg(end);
    QApplication::setActiveWindow(manager.get());
    user->table->edit(user->model->index(row, 2));
    auto *editor = user->table->viewport()->findChild<VTLineEditWidget *>();
    QVERIFY(editor);
    editor->lineEdit()->selectAll();
    QTest::keyClicks(editor->lineEdit(), typed);
    QStringList others = table;
    others.removeAt(row);
    const QString name =
        others.contains(typed) ? numbered(QStringLiteral("rename_"), others) : typed;
    if (end == 0) {
        QTest::keyClick(editor->lineEdit(), Qt::Key_Escape);
    } else {
        // Under an open field the next command may follow at once.
        if (end == 1)
            QTest::keyClick(editor->lineEdit(), Qt::Key_Return);
        else if (end == 2)
            user->tree->setFocus();
        else
            user->command("actionSelect_all");
        // A name that is typed once more is none, however many have it.
        if (typed != table[row]) {
            table[row] = name;
            modified = true;
        }
    }
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!user->table->viewport()->findChild<VTLineEditWidget *>());
    QVERIFY(user->ok->isEnabled());
}

void RandomManagerUser::selectSome()
{
    const int way = below(4);
    history += QStringLiteral(" select(%1)").arg(way);
    if (way == 0) {
        user->command("actionSelect_all");
        return;
    }
    QVector<int> rows;
    for (int row = 0; row < table.size(); ++row) {
        if (oneIn(2))
            rows.append(row);
    }
    user->select(rows);
    if (way == 1) {
        user->command("actionInvert_select");
        QCOMPARE(user->table->selectedRowNumbers().size(), table.size() - rows.size());
    }
}
