#include "colorscheme/manager/VTLineEditWidget.h"
#include "tests/colorscheme/manager/ManagerUser.h"
#include "tests/support/TestStore.h"
#include "tests/vomap/store/StoreFixture.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QRandomGenerator>
#include <QTimer>
#include <QtTest>

#include <deque>
#include <memory>

using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOColorSchemeTeam;

namespace {

struct Group
{
    QString name;
    QStringList schemes;
};

using Team = QVector<Group>;

Team teamOf(const VOColorSchemeTeam &records)
{
    Team team;
    for (const auto &group : records.groups)
        team.append({toQString(group.name), schemeNames(group)});
    return team;
}

QString textOf(const Team &team)
{
    QString text;
    for (const Group &group : team)
        text +=
            group.name + QLatin1Char('[') + group.schemes.join(QLatin1Char(',')) + QLatin1Char(']');
    return text;
}

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

/// Answers modal windows in the order of their appearance, as soon as each is there. Unlike
/// ModalDriver it does not let any time pass, and many thousands of windows are to be answered.
class Answers : public QObject
{
public:
    Answers()
    {
        timer.setInterval(0);
        connect(&timer, &QTimer::timeout, this, &Answers::onTimeout);
    }
    void next(const ModalDriver::Handler &handler)
    {
        handlers.push_back(handler);
        timer.start();
    }
    bool done() const { return handlers.empty(); }

private:
    void onTimeout()
    {
        QWidget *window = QApplication::activeModalWidget();
        if (!window || !window->isVisible() || window == last)
            return;
        if (handlers.empty()) {
            timer.stop();
            return;
        }
        last = window;
        const ModalDriver::Handler handler = handlers.front();
        handlers.pop_front();
        handler(window);
    }

    std::deque<ModalDriver::Handler> handlers;
    QTimer timer;
    QPointer<QWidget> last;
};

void press(QWidget *window, const char *name)
{
    auto *button = window->findChild<QPushButton *>(QLatin1String(name));
    QVERIFY(button);
    button->click();
}

ModalDriver::Handler pressStandard(QMessageBox::StandardButton button)
{
    return [button](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY2(box, window->metaObject()->className());
        box->button(button)->click();
    };
}

} // namespace

/// Plays random commands on the manager, and beside it on plain lists of names that stand for what
/// the manager should then hold. Built-in groups stand in another order in the store than in the
/// tree, and one of them is not shown at all.
class tst_managerRandomCommands : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void treeTableAndWorkingCopiesAgree_data();
    void treeTableAndWorkingCopiesAgree();

private:
    int below(int bound) { return int(random.bounded(bound)); }
    bool oneIn(int chances) { return below(chances) == 0; }

    void step();
    void clickNode();
    void moveCurrent();
    void addGroup();
    void deleteGroup();
    void copySchemes();
    void addScheme();
    void editScheme();
    void deleteSchemes();
    void favorSchemes();
    void importSchemes();
    void exportSchemes();
    void renameInPlace();
    void selectSome();
    void finish();

    void show(const QModelIndex &index);
    void writeBack();
    void check();

    std::unique_ptr<TestStore> store;
    std::unique_ptr<StoreFixture> storeInMemory; // saves are waited for thousands of times
    std::unique_ptr<VTColorSchemeManager> manager;
    std::unique_ptr<ManagerUser> user;
    std::unique_ptr<Answers> answers;
    QRandomGenerator random;
    QString history;

    Team teams[3];
    QStringList table;
    int kind = 0;
    int shown = -1;
    bool modified = false;
    int fresh = 0; // for names that nobody else has
};

namespace {

const QStringList builtInOrder{"DEM", "Unique", "Range", "Graph", "Even", "Random"};
const QStringList builtInTexts{"For DEM",   "For unique",  "For unique range",
                               "For graph", "Even scheme", "Random scheme"};

QString favoriteText(const QString &name)
{
    const int i = builtInOrder.indexOf(name);
    return i < 0 ? name : builtInTexts[i];
}

} // namespace

void tst_managerRandomCommands::init()
{
    store = std::make_unique<TestStore>();
    storeInMemory = std::make_unique<StoreFixture>(StoreFixture::InMemory);
    for (const char *name : {"i1", "a"})
        VOColorSchemeManager::saveFile(makeScheme(QLatin1String(name)),
                                       toVOString(store->path(QLatin1String(name))));
    QFile bad(store->path(QStringLiteral("bad")));
    QVERIFY(bad.open(QIODevice::WriteOnly));
}

void tst_managerRandomCommands::cleanup()
{
    user.reset();
    manager.reset();
    answers.reset();
    storeInMemory.reset();
    store.reset();
}

void tst_managerRandomCommands::treeTableAndWorkingCopiesAgree_data()
{
    QTest::addColumn<int>("firstSeed");
    QTest::addColumn<int>("sequences");
    QTest::addColumn<int>("steps");
    QTest::newRow("many short ones") << 1 << 2000 << 6;
    QTest::newRow("some long ones") << 100000 << 20 << 150;
}

void tst_managerRandomCommands::treeTableAndWorkingCopiesAgree()
{
    QFETCH(int, firstSeed);
    QFETCH(int, sequences);
    QFETCH(int, steps);
    for (int seed = firstSeed; seed < firstSeed + sequences; ++seed) {
        auto *records = VOColorSchemeManager::instance();
        records->defaultTeam.groups = {makeGroup("Unique", {"a", "add_scheme3"}),
                                       makeGroup("Hidden", {"h"}), makeGroup("DEM", {"a", "b"})};
        records->customTeam.groups = {makeGroup("One", {"a", "b", "c"}), makeGroup("Two", {}),
                                      makeGroup("Three", {"d", "add_scheme7"})};
        records->favoriteTeam.groups = {makeGroup("DEM", {"a"}), makeGroup("Gone", {"g", "h"})};
        random.seed(quint32(seed));
        history = QStringLiteral("seed %1:").arg(seed);
        manager = std::make_unique<VTColorSchemeManager>();
        user = std::make_unique<ManagerUser>(*manager);
        answers = std::make_unique<Answers>();
        manager->show();
        QApplication::setActiveWindow(manager.get());
        teams[0] = teamOf(records->defaultTeam);
        teams[1] = teamOf(records->customTeam);
        teams[2] = teamOf(records->favoriteTeam);
        modified = false;
        fresh = 0;
        kind = 0;
        shown = 2;
        table = teams[0][2].schemes;
        check();
        for (int i = 0; i < steps && !QTest::currentTestFailed(); ++i) {
            step();
            check();
        }
        finish();
        if (QTest::currentTestFailed()) {
            qWarning("%s", qPrintable(history));
            return;
        }
    }
}

void tst_managerRandomCommands::step()
{
    using Command = void (tst_managerRandomCommands::*)();
    // As often as they stand here.
    static constexpr Command commands[] = {
        &tst_managerRandomCommands::clickNode,     &tst_managerRandomCommands::clickNode,
        &tst_managerRandomCommands::clickNode,     &tst_managerRandomCommands::moveCurrent,
        &tst_managerRandomCommands::moveCurrent,   &tst_managerRandomCommands::addGroup,
        &tst_managerRandomCommands::deleteGroup,   &tst_managerRandomCommands::deleteGroup,
        &tst_managerRandomCommands::copySchemes,   &tst_managerRandomCommands::copySchemes,
        &tst_managerRandomCommands::addScheme,     &tst_managerRandomCommands::deleteSchemes,
        &tst_managerRandomCommands::deleteSchemes, &tst_managerRandomCommands::favorSchemes,
        &tst_managerRandomCommands::favorSchemes,  &tst_managerRandomCommands::renameInPlace,
        &tst_managerRandomCommands::selectSome,    &tst_managerRandomCommands::selectSome,
    };
    if (oneIn(40))
        editScheme();
    else if (oneIn(60))
        importSchemes();
    else if (oneIn(60))
        exportSchemes();
    else
        (this->*commands[below(int(std::size(commands)))])();
    if (!answers->done())
        QFAIL("a window did not appear");
}

void tst_managerRandomCommands::writeBack()
{
    if (shown >= 0)
        teams[kind][shown].schemes = table;
}

void tst_managerRandomCommands::show(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    if (modified)
        writeBack();
    QModelIndex group = index;
    if (!index.parent().isValid()) {
        kind = index.row();
        group = user->node(kind, 0);
    } else {
        kind = index.parent().row();
    }
    shown = group.row();
    if (kind == 0 && group.isValid())
        shown = group.row() == 0 ? 2 : 0; // DEM, Unique
    table = shown < 0 ? QStringList() : teams[kind][shown].schemes;
}

void tst_managerRandomCommands::clickNode()
{
    const int team = below(3);
    const int group = below(user->groups(team).size() + 1) - 1;
    history += QStringLiteral(" click(%1,%2)").arg(team).arg(group);
    user->click(team, group);
    show(user->node(team, group));
}

void tst_managerRandomCommands::moveCurrent()
{
    const Qt::Key key = oneIn(2) ? Qt::Key_Up : Qt::Key_Down;
    const int times = 1 + below(4);
    history += QStringLiteral(" move(%1x%2)").arg(key == Qt::Key_Up ? "up" : "down").arg(times);
    user->tree->setFocus();
    for (int i = 0; i < times; ++i)
        QTest::keyClick(user->tree, key);
}

void tst_managerRandomCommands::addGroup()
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

void tst_managerRandomCommands::deleteGroup()
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

void tst_managerRandomCommands::copySchemes()
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

void tst_managerRandomCommands::addScheme()
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

void tst_managerRandomCommands::editScheme()
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

void tst_managerRandomCommands::deleteSchemes()
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

void tst_managerRandomCommands::favorSchemes()
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

void tst_managerRandomCommands::importSchemes()
{
    const QModelIndex current = user->tree->currentIndex();
    const bool childlessTeam =
        !current.parent().isValid() && current.row() > 0 && user->groups(current.row()).isEmpty();
    const bool opens = !childlessTeam && shown >= 0;
    history += QStringLiteral(" import(%1)").arg(opens);
    if (opens) {
        answers->next(choose({store->path("i1"), store->path("bad"), store->path("a")}));
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

void tst_managerRandomCommands::exportSchemes()
{
    QStringList names;
    for (const int row : user->table->selectedRowNumbers())
        names.append(table[row] + QStringLiteral(".vcs"));
    history += QStringLiteral(" export(%1)").arg(names.size());
    const QString folder = store->path(QStringLiteral("exported"));
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

void tst_managerRandomCommands::renameInPlace()
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
        table[row] = name;
        modified = true;
    }
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!user->table->viewport()->findChild<VTLineEditWidget *>());
    QVERIFY(user->ok->isEnabled());
}

void tst_managerRandomCommands::selectSome()
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

void tst_managerRandomCommands::check()
{
    QCOMPARE(user->table->teamKind, kind);
    QCOMPARE(user->table->groupIndex, shown);
    QCOMPARE(user->names(), table);
    if (shown >= 0)
        QCOMPARE(toQString(user->model->group().name), teams[kind][shown].name);
    else
        QVERIFY(table.isEmpty());
    for (int team = 0; team < 3; ++team)
        QCOMPARE(textOf(teamOf(workingCopy(*manager, team))), textOf(teams[team]));
    QStringList customs;
    for (const Group &group : qAsConst(teams[1]))
        customs.append(group.name);
    QCOMPARE(user->groups(1), customs);
    QStringList favorites;
    for (const Group &group : qAsConst(teams[2]))
        favorites.append(group.name);
    QStringList shownFavorites = user->groups(2);
    QCOMPARE(shownFavorites.size(), favorites.size());
    for (int i = 0; i < favorites.size(); ++i)
        QVERIFY(shownFavorites[i] == favorites[i] ||
                shownFavorites[i] == favoriteText(favorites[i]));
    QCOMPARE(user->groups(0), (QStringList{"For DEM", "For unique"}));
    for (const int row : user->table->selectedRowNumbers())
        QVERIFY(row < table.size());
}

void tst_managerRandomCommands::finish()
{
    if (QTest::currentTestFailed())
        return;
    auto *records = VOColorSchemeManager::instance();
    const Team before[] = {teamOf(records->defaultTeam), teamOf(records->customTeam),
                           teamOf(records->favoriteTeam)};
    const auto agreesWith = [&](const Team *expected) {
        QCOMPARE(textOf(teamOf(records->defaultTeam)), textOf(expected[0]));
        QCOMPARE(textOf(teamOf(records->customTeam)), textOf(expected[1]));
        QCOMPARE(textOf(teamOf(records->favoriteTeam)), textOf(expected[2]));
    };
    const bool byCancel = oneIn(4);
    const bool accepted = !byCancel && !oneIn(3);
    history += QStringLiteral(" %1(%2)").arg(byCancel ? "cancel" : "ok").arg(accepted);
    if (modified && !byCancel)
        answers->next(pressStandard(accepted ? QMessageBox::Yes : QMessageBox::Cancel));
    (byCancel ? user->cancel : user->ok)->click();
    QVERIFY(answers->done());
    QVERIFY(!manager->isVisible());
    if (!modified || !accepted) {
        agreesWith(before);
        return;
    }
    writeBack();
    agreesWith(teams);
    // The disk has the same.
    QVERIFY(records->load());
    agreesWith(teams);
}

QTEST_MAIN(tst_managerRandomCommands)
#include "tst_managerRandomCommands.moc"
