#include "colorscheme/manager/VTColorSchemeManager.h"

#include "colorscheme/manager/ManagerKeys_p.h"
#include "colorscheme/manager/OneLineDelegate_p.h"
#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/manager/WorkingCopies_p.h"
#include "colorscheme/manager/nodeInfo_p.h"
#include "colorscheme/manager/tableColumns_p.h"
#include "colorscheme/model/DialogMemory_p.h"
#include "vomap/VOStringConversion.h"

#include "ui_VTColorSchemeManagerBase.h"

#include <QHeaderView>
#include <QShowEvent>
#include <QStandardItemModel>

#include <utility>

using vtcontrolcolorscheme::AuthorColumn;
using vtcontrolcolorscheme::DialogMemory;
using vtcontrolcolorscheme::GroupPlace;
using vtcontrolcolorscheme::ManagerKeys;
using vtcontrolcolorscheme::NameColumn;
using vtcontrolcolorscheme::nodeInfo;
using vtcontrolcolorscheme::nodeInfoRole;
using vtcontrolcolorscheme::OneLineDelegate;
using vtcontrolcolorscheme::WorkingCopies;
using VTObjects::CustomTeam;
using VTObjects::DefaultTeam;
using VTObjects::FavoriteTeam;
using VTObjects::toQString;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOString;

// The nodes of the teams bear the teams' own numbers.
static_assert(int(DefaultTeamNode) == DefaultTeam && int(CustomTeamNode) == CustomTeam &&
              int(FavoriteTeamNode) == FavoriteTeam);

namespace {

/// Exactly of this size. An icon that just names its file takes on another size once it has been
/// painted, and the rows of the tree with it.
QIcon iconOfSize(const QString &file, int size)
{
    return QIcon(QIcon(file).pixmap(QSize(size, size)));
}

} // namespace

VTColorSchemeManager::VTColorSchemeManager(QWidget *parent)
    : VTColorSchemeManager(VTDiscardedSchemes(), parent)
{
}

VTColorSchemeManager::VTColorSchemeManager(const VTDiscardedSchemes &again, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::VTColorSchemeManagerBase>())
    , copies(std::make_unique<WorkingCopies>(again))
{
    // A linker that was not told to take the icons out of a static archive does so for this.
    Q_INIT_RESOURCE(VTControlColorScheme);
    ui->setupUi(this);
    initUi();
    setupConnections();
    onTeamViewClicked(teamModel->index(0, 0));
}

VTColorSchemeManager::~VTColorSchemeManager()
{
    // A dialog that goes while it is shown hides itself, which ends what is being typed in the
    // table. That must happen as long as there is somebody to hear of it.
    hide();
    for (QStandardItem **root : {&defaultItem, &customItem, &favoriteItem}) {
        delete *root;
        *root = nullptr;
    }
}

void VTColorSchemeManager::initUi()
{
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint);
    resize(790, 530);
    qRegisterMetaType<ColorSchemeNodeInfo>("ColorSchemeNodeInfo");
    ui->teamView->setAccessibleName(tr("Groups of color schemes"));
    teamModel = new QStandardItemModel(0, 1, this);
    ui->teamView->setModel(teamModel);
    ui->teamView->setItemDelegate(new OneLineDelegate(ui->teamView, OneLineDelegate::PlainText));
    ui->teamView->setStyleSheet(
        QStringLiteral("QTreeView::item:hover{background-color:rgb(255,0,0,125)}"
                       "QTreeView::item:selected{background-color:rgb(0,0,255,50)}"));
    // On that pale selection the palette's text for selected items could not be read.
    QPalette palette = ui->teamView->palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::HighlightedText, palette.color(group, QPalette::Text));
        palette.setColor(group, QPalette::Highlight, QColor(0, 0, 255, 50));
    }
    ui->teamView->setPalette(palette);
    groupIcon = iconOfSize(QStringLiteral(":/icon/Group.png"), 16);

    defaultItem = appendTeam(QStringLiteral(":/icon/Default.png"), tr("Default"), DefaultTeam);
    for (const WorkingCopies::BuiltIn &group : copies->shownBuiltIns())
        appendGroup(defaultItem, group.caption, group.name);
    customItem = appendTeam(QStringLiteral(":/icon/Custom.png"), tr("Custom"), CustomTeam);
    favoriteItem = appendTeam(QStringLiteral(":/icon/Favorite.png"), tr("Favorite"), FavoriteTeam);
    for (QStandardItem *team : {customItem, favoriteItem}) {
        for (const VOColorSchemeGroup &group : copies->team(nodeInfo(team).type)->groups)
            appendGroup(team, toQString(group.name), group.name);
    }
    ui->teamView->expandAll();
    showReadOnly();

    keys = new ManagerKeys(*ui, this);
    auto *memory = new DialogMemory(this, QStringLiteral("manager"));
    QHeaderView *const header = ui->schemeView->horizontalHeader();
    memory->addColumn(header, NameColumn, QStringLiteral("nameWidth"));
    memory->addColumn(header, AuthorColumn, QStringLiteral("authorWidth"));
}

void VTColorSchemeManager::showEvent(QShowEvent *event)
{
    if (!event->spontaneous())
        m_outcome.reset();
    QDialog::showEvent(event);
}

void VTColorSchemeManager::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange && keys)
        retranslate();
    QDialog::changeEvent(event);
}

void VTColorSchemeManager::retranslate()
{
    ui->retranslateUi(this);
    ui->teamView->setAccessibleName(tr("Groups of color schemes"));
    keys->nameKeys();
    defaultItem->setText(tr("Default"));
    customItem->setText(tr("Custom"));
    favoriteItem->setText(tr("Favorite"));
    // The nodes that bear a caption; those of the user's groups, and what a host wrote, stay.
    QVector<std::pair<QStandardItem *, VOString>> captioned;
    for (const QStandardItem *team : {defaultItem, favoriteItem}) {
        for (int row = 0; row < team->rowCount(); ++row) {
            QStandardItem *const item = team->child(row);
            const VOString name = nodeInfo(item).name;
            const bool isName = team == favoriteItem && item->text() == toQString(name);
            if (!isName && item->text() == copies->captionOf(name))
                captioned.append({item, name});
        }
    }
    copies->retranslate();
    for (const auto &[item, name] : qAsConst(captioned))
        item->setText(copies->captionOf(name));
    showReadOnly();
}

QStandardItem *VTColorSchemeManager::appendTeam(const QString &icon, const QString &text,
                                                int teamKind)
{
    QFont font;
    font.setPointSize(10);
    font.setWeight(QFont::Bold);
    auto *item = new QStandardItem(iconOfSize(icon, 24), text);
    const ColorSchemeNodeInfo info(copies->team(teamKind)->name, static_cast<NodeType>(teamKind));
    item->setData(QVariant::fromValue(info), nodeInfoRole);
    item->setFont(font);
    teamModel->appendRow(item);
    return item;
}

void VTColorSchemeManager::appendGroup(QStandardItem *team, const QString &text,
                                       const VOString &name)
{
    auto *item = new QStandardItem(groupIcon, text);
    item->setData(QVariant::fromValue(ColorSchemeNodeInfo(name, GroupNode)), nodeInfoRole);
    team->appendRow(item);
}

void VTColorSchemeManager::setupConnections()
{
    using Manager = VTColorSchemeManager;
    connect(ui->schemeView, &VTColorSchemeView::information, this, &Manager::onInformation);
    connect(ui->pushButton_ok, &QPushButton::clicked, this, &Manager::onOk);
    connect(ui->pushButton_cancel, &QPushButton::clicked, this, &Manager::onClose);
    connect(ui->teamView, &QTreeView::clicked, this, &Manager::onTeamViewClicked);
    connect(ui->actionAdd_group, &QAction::triggered, this, &Manager::onAddGroup);
    connect(ui->actionDelete_group, &QAction::triggered, this, &Manager::onDeleteGroup);
    connect(ui->actionAdd_scheme, &QAction::triggered, this, &Manager::onAddScheme);
    connect(ui->actionDelete_scheme, &QAction::triggered, this, &Manager::onDeleteScheme);
    connect(ui->actionEdit_scheme, &QAction::triggered, this, &Manager::onEditScheme);
    connect(ui->actionSelect_all, &QAction::triggered, this, &Manager::onSelectAll);
    connect(ui->actionInvert_select, &QAction::triggered, this, &Manager::onInvertSelect);
    connect(ui->actionExport_scheme, &QAction::triggered, this, &Manager::onExportScheme);
    connect(ui->actionImport_scheme, &QAction::triggered, this, &Manager::onImportScheme);
    // The host's code can end the dialog too. First of all who hear of it, or they would ask in
    // vain.
    const auto decide = [this] {
        if (!m_outcome)
            m_outcome = outcome();
    };
    connect(this, &QDialog::accepted, this, decide);
    connect(this, &QDialog::rejected, this, decide);
    connect(this, &QDialog::finished, this, decide);
}

VTColorSchemeManager::Outcome VTColorSchemeManager::outcome() const
{
    return m_outcome.value_or(WorkingCopies::isModified() ? Discarded : NothingChanged);
}

void VTColorSchemeManager::onTeamViewClicked(const QModelIndex &index)
{
    QStandardItem *item = teamModel->itemFromIndex(index);
    if (!item)
        return;
    ui->schemeView->finishEditing();
    // Deliberate: only a user's click keeps what was edited in the table; a call from code has
    // written it back already or means to drop it.
    if (sender() && WorkingCopies::isModified())
        updateData();

    QStandardItem *team = item->parent();
    if (!team) {
        team = item;
        item = team->child(0);
        if (item)
            ui->teamView->setCurrentIndex(item->index());
    }
    const int teamKind = nodeInfo(team).type;
    // A group below a node that is no team's is nobody's; the table keeps what it shows.
    if (!item)
        showGroup({teamKind, -1});
    else if (copies->team(teamKind))
        showGroup(placeOf(item));

    if (ui->schemeView->schemeModel()->columnCount() == 0)
        return;
    ui->schemeView->setFocus(Qt::OtherFocusReason);
    ui->schemeView->selectRow(0);
}

void VTColorSchemeManager::showGroup(GroupPlace place)
{
    ui->schemeView->setReadOnly(copies->isReadOnly(place));
    if (const VOColorSchemeGroup *group = copies->group(place))
        ui->schemeView->setGroup(place.teamKind, place.groupIndex, *group);
    else
        ui->schemeView->setGroup(place.teamKind, -1, VOColorSchemeGroup());
}

void VTColorSchemeManager::updateData()
{
    copies->write(shownPlace(), ui->schemeView->schemeModel()->group());
}

void VTColorSchemeManager::onClose()
{
    reject();
}

QStandardItem *VTColorSchemeManager::currentItem() const
{
    return teamModel->itemFromIndex(ui->teamView->currentIndex());
}

GroupPlace VTColorSchemeManager::placeOf(const QStandardItem *item) const
{
    return copies->placeOf(nodeInfo(item->parent()).type, item->row(), nodeInfo(item).name);
}

GroupPlace VTColorSchemeManager::shownPlace() const
{
    return {ui->schemeView->teamKind, ui->schemeView->groupIndex};
}

bool VTColorSchemeManager::showsGroup() const
{
    return copies->group(shownPlace()) != nullptr;
}
