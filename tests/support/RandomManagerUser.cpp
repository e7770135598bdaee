#include "tests/support/RandomManagerUser.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QtTest>

using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOColorSchemeTeam;

namespace {

NameTeam teamOf(const VOColorSchemeTeam &records)
{
    NameTeam team;
    for (const auto &group : records.groups)
        team.append({toQString(group.name), schemeNames(group)});
    return team;
}

QString textOf(const NameTeam &team)
{
    QString text;
    for (const NameGroup &group : team)
        text +=
            group.name + QLatin1Char('[') + group.schemes.join(QLatin1Char(',')) + QLatin1Char(']');
    return text;
}

const QStringList builtInOrder{"DEM", "Unique", "Range", "Graph", "Even", "Random"};
const QStringList builtInTexts{"For DEM",   "For unique",  "For unique range",
                               "For graph", "Even scheme", "Random scheme"};

QString favoriteText(const QString &name)
{
    const int i = builtInOrder.indexOf(name);
    return i < 0 ? name : builtInTexts[i];
}

} // namespace

RandomManagerUser::RandomManagerUser()
    : storeInMemory(StoreFixture::InMemory)
{
    for (const char *name : {"i1", "a"})
        VOColorSchemeManager::saveFile(makeScheme(QLatin1String(name)),
                                       toVOString(store.path(QLatin1String(name))));
    QFile bad(store.path(QStringLiteral("bad")));
    if (!bad.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(bad.fileName()));
}

RandomManagerUser::~RandomManagerUser() = default;

void RandomManagerUser::play(int seed, int steps)
{
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
    answers = std::make_unique<ModalDriver>(ModalDriver::AtOnce);
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
}

void RandomManagerUser::step()
{
    using Command = void (RandomManagerUser::*)();
    // As often as they stand here.
    static constexpr Command commands[] = {
        &RandomManagerUser::clickNode,     &RandomManagerUser::clickNode,
        &RandomManagerUser::clickNode,     &RandomManagerUser::moveCurrent,
        &RandomManagerUser::moveCurrent,   &RandomManagerUser::addGroup,
        &RandomManagerUser::deleteGroup,   &RandomManagerUser::deleteGroup,
        &RandomManagerUser::copySchemes,   &RandomManagerUser::copySchemes,
        &RandomManagerUser::addScheme,     &RandomManagerUser::deleteSchemes,
        &RandomManagerUser::deleteSchemes, &RandomManagerUser::favorSchemes,
        &RandomManagerUser::favorSchemes,  &RandomManagerUser::renameInPlace,
        &RandomManagerUser::selectSome,    &RandomManagerUser::selectSome,
    };
    if (oneIn(40))
        editScheme();
    else if (oneIn(60))
        importSchemes();
    else if (oneIn(60))
        exportSchemes();
    else
        (this->*commands[below(int(std::size(commands)))])();
    if (!answers->allSeen())
        QFAIL("a window did not appear");
}

void RandomManagerUser::writeBack()
{
    if (shown >= 0)
        teams[kind][shown].schemes = table;
}

void RandomManagerUser::show(const QModelIndex &index)
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

void RandomManagerUser::check()
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
    for (const NameGroup &group : qAsConst(teams[1]))
        customs.append(group.name);
    QCOMPARE(user->groups(1), customs);
    QStringList favorites;
    for (const NameGroup &group : qAsConst(teams[2]))
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

void RandomManagerUser::finish()
{
    if (QTest::currentTestFailed())
        return;
    auto *records = VOColorSchemeManager::instance();
    const NameTeam before[] = {teamOf(records->defaultTeam), teamOf(records->customTeam),
                               teamOf(records->favoriteTeam)};
    const auto agreesWith = [&](const NameTeam *expected) {
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
    QVERIFY(answers->allSeen());
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
