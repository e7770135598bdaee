// How long the manager's commands take in a group of 10,000 schemes. Run it with
// QT_QPA_PLATFORM=offscreen where there is no display.
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/manager/VTColorSchemeView.h"
#include "colorscheme/model/defaultColorRamp_p.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>

#include <cstdio>
#include <functional>

using vtcontrolcolorscheme::defaultColorRamp;

using namespace VTObjects;

namespace {

constexpr int schemeCount = 10000;

void measure(const char *what, const std::function<void()> &command)
{
    QElapsedTimer timer;
    timer.start();
    command();
    QCoreApplication::processEvents(); // what is to be painted counts
    std::printf("%-36s %8.1f ms\n", what, double(timer.nsecsElapsed()) / 1e6);
}

VOColorSchemeGroup manySchemes(const char *name)
{
    VOColorSchemeGroup group;
    group.name = name;
    for (int i = 0; i < schemeCount; ++i) {
        VOColorScheme scheme;
        scheme.name = toVOString(QStringLiteral("scheme %1").arg(i));
        scheme.author = L"Admin";
        scheme.describe = L"Even";
        scheme.colorRamp = defaultColorRamp().release();
        group.schemes.push_back(std::move(scheme));
    }
    return group;
}

/// Answers the next message box with its accepting button.
void acceptNextBox()
{
    QTimer::singleShot(0, [] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
            box->button(QMessageBox::Ok)->click();
        else
            acceptNextBox();
    });
}

void selectEveryOther(VTColorSchemeView *table)
{
    QItemSelection selection;
    VTColorSchemeModel *model = table->schemeModel();
    for (int row = 0; row < model->rowCount(); row += 2)
        selection.append(QItemSelectionRange(model->index(row, 0), model->index(row, 4)));
    table->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QTemporaryDir directory;
    VOColorSchemeManager::setStoreDirectory(toVOString(directory.path()));
    VOColorSchemeManager *store = VOColorSchemeManager::instance();
    store->customTeam.groups = {manySchemes("A"), manySchemes("B")};

    std::unique_ptr<VTColorSchemeManager> manager;
    measure("open the manager", [&] {
        manager = std::make_unique<VTColorSchemeManager>();
        manager->show();
    });
    auto *tree = manager->findChild<QTreeView *>(QStringLiteral("teamView"));
    auto *table = manager->findChild<VTColorSchemeView *>(QStringLiteral("schemeView"));
    const auto command = [&](const char *name) {
        manager->findChild<QAction *>(QLatin1String(name))->trigger();
    };
    const QModelIndex customs = tree->model()->index(1, 0);
    measure("show the group", [&] {
        const QModelIndex group = tree->model()->index(0, 0, customs);
        tree->setCurrentIndex(group);
        Q_EMIT tree->clicked(group);
    });
    measure("scroll to the end", [&] { table->scrollToBottom(); });
    measure("scroll by a page",
            [&] { table->verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepSub); });
    measure("select all", [&] { command("actionSelect_all"); });
    measure("invert all", [&] { command("actionInvert_select"); });
    measure("invert none", [&] { command("actionInvert_select"); });
    measure("favor all", [&] { table->onFavorite(); });
    selectEveryOther(table);
    measure("invert every other", [&] { command("actionInvert_select"); });
    measure("favor every other", [&] { table->onFavorite(); });
    measure("right-click", [&] {
        const QPoint place = table->viewport()->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                table->viewport()->mapToGlobal(place));
        QApplication::sendEvent(table->viewport(), &event);
        if (QWidget *menu = QApplication::activePopupWidget())
            menu->close();
    });
    measure("copy every other, all clash", [&] {
        const std::unique_ptr<QMenu> menu(manager->customMenu());
        menu->actions().first()->trigger();
    });
    measure("delete every other", [&] {
        acceptNextBox();
        command("actionDelete_scheme");
    });
    command("actionSelect_all");
    measure("delete the other half", [&] {
        acceptNextBox();
        command("actionDelete_scheme");
    });
    return 0;
}
