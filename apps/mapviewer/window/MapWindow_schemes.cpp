#include "apps/mapviewer/schemes/SchemeCopy.h"
#include "apps/mapviewer/window/HistoryDialog.h"
#include "apps/mapviewer/window/LayerCard.h"
#include "apps/mapviewer/window/MapWindow.h"
#include "apps/mapviewer/window/StoreGuard.h"

#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorSchemeManager.h"

#include <QDir>
#include <QFileDialog>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTextDocument>
#include <QToolBar>

namespace mapviewer {

using VTObjects::VOColorSchemeManager;

namespace {

constexpr int storeNameLetters = 36;

} // namespace

void MapWindow::buildSchemeMenu(QToolBar *bar)
{
    QMenu *menu = menuBar()->addMenu(tr("&Schemes"));
    QAction *manage = menu->addAction(QIcon(QStringLiteral(":/icon/EditScheme.png")),
                                      tr("&Manage schemes…"), this, &MapWindow::manageSchemes);
    manage->setObjectName(QStringLiteral("manageSchemes"));
    manage->setShortcut(QKeySequence(QStringLiteral("Ctrl+M")));
    bringBackAction =
        menu->addAction(tr("&Bring back discarded changes"), this, &MapWindow::bringBackDiscarded);
    bringBackAction->setObjectName(QStringLiteral("bringBackDiscarded"));
    setDiscarded(VTDiscardedSchemes());
    QAction *restore =
        menu->addAction(tr("&Restore built-in schemes…"), this, &MapWindow::onRestoreBuiltIns);
    restore->setObjectName(QStringLiteral("restoreBuiltIns"));
    menu->addAction(tr("&History…"), this, &MapWindow::showHistory)
        ->setObjectName(QStringLiteral("schemeHistory"));
    menu->addSeparator();
    menu->addAction(tr("Open scheme &store…"), this, &MapWindow::onOpenStore);
    defaultStoreAction = menu->addAction(tr("&Default store"), this, [this] { openStore({}); });
    defaultStoreAction->setObjectName(QStringLiteral("defaultStore"));
    bar->addSeparator();
    bar->addAction(manage);
}

void MapWindow::manageSchemes()
{
    VTColorSchemeManager manager(this);
    run(&manager);
}

void MapWindow::bringBackDiscarded()
{
    VTColorSchemeManager manager(discarded, this);
    run(&manager);
}

void MapWindow::run(VTColorSchemeManager *manager)
{
    manager->exec();
    if (manager->outcome() != VTColorSchemeManager::NothingChanged)
        setDiscarded(manager->discarded());
    syncCards();
}

void MapWindow::setDiscarded(const VTDiscardedSchemes &schemes)
{
    discarded = schemes;
    bringBackAction->setEnabled(!discarded.isEmpty);
}

void MapWindow::showHistory()
{
    HistoryDialog dialog(this);
    connect(&dialog, &HistoryDialog::restored, this, &MapWindow::syncCards);
    dialog.exec();
}

void MapWindow::syncCards()
{
    for (LayerCard *card : cards())
        card->syncWithStore();
}

void MapWindow::editScheme(LayerCard *card)
{
    // The user's own schemes are edited where they are; of any other a copy is made, so that what
    // ships with the program, and favourites, stay what they were.
    const VTObjects::VOColorSchemeId before = card->currentScheme();
    SchemeCopy copy(before, card->picker()->currentScheme(), card->picker()->currentColorRamp());
    QList<LayerCard *> together{card};
    if (!copy.isNew()) {
        for (LayerCard *other : cards()) {
            if (other != card && other->currentScheme() == before &&
                VOColorSchemeManager::areEqual(other->picker()->currentScheme(),
                                               card->picker()->currentScheme()))
                together.append(other);
        }
    }
    // The editor works in the store, where nothing may move meanwhile.
    const VOColorSchemeManager::Hold hold;
    VTColorSchemeEditor editor(copy.schemeIndex(), copy.group(), copy.isNew(), this);
    if (editor.exec() != QDialog::Accepted) {
        copy.discard();
        return;
    }
    // By its place: it may have another name now.
    for (LayerCard *each : together)
        each->chooseOwn(copy.groupIndex(), copy.schemeIndex());
    // The guard tells of a failure; the scheme is used all the same.
    VOColorSchemeManager::instance()->saveCustomTeam();
}

void MapWindow::onOpenStore()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Open scheme store"), StoreGuard::chosenFolder(),
        QFileDialog::ShowDirsOnly | QFileDialog::DontUseNativeDialog);
    if (!folder.isEmpty())
        openStore(folder);
}

bool MapWindow::openStore(const QString &folder)
{
    return guard->open(folder);
}

void MapWindow::onStoreOpened()
{
    setDiscarded(VTDiscardedSchemes()); // they belong to the other store
    showStoreName();
    for (LayerCard *card : cards())
        card->reloadScheme();
}

void MapWindow::showStoreName()
{
    const QString folder = StoreGuard::chosenFolder();
    const QString name = folder.isEmpty() ? tr("Default store") : QDir(folder).dirName();
    storeLabel->setText(
        fontMetrics().elidedText(tr("Schemes: %1").arg(name), Qt::ElideMiddle,
                                 storeNameLetters * fontMetrics().averageCharWidth()));
    storeLabel->setToolTip(Qt::convertFromPlainText(
        folder.isEmpty() ? name : QDir::toNativeSeparators(folder), Qt::WhiteSpaceNormal));
    defaultStoreAction->setEnabled(!folder.isEmpty());
}

void MapWindow::onRestoreBuiltIns()
{
    QMessageBox box(QMessageBox::Warning, tr("Restore built-in schemes"),
                    tr("The built-in groups become what they were when the program was installed. "
                       "Whatever was added, changed or deleted in them is lost."),
                    QMessageBox::Cancel, this);
    box.setInformativeText(tr("Your own groups and your favorites stay."));
    QPushButton *restore = box.addButton(tr("Restore"), QMessageBox::AcceptRole);
    restore->setObjectName(QStringLiteral("restore"));
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() != restore)
        return;
    VOColorSchemeManager *store = VOColorSchemeManager::instance();
    store->resetDefaultTeam();
    store->save(); // the guard tells of a failure
    syncCards();
}

} // namespace mapviewer
