#include "apps/mapviewer/window/HistoryDialog.h"

#include "apps/mapviewer/schemes/storeSchemes.h"
#include "apps/mapviewer/window/AppSettings.h"

#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTextDocument>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace mapviewer {

using namespace VTObjects;

namespace {

const QSize startSize(820, 480);
const QString sizeKey = QStringLiteral("mapviewer/historySize");
const QSize stripSize(120, 18);
enum Column { NameColumn, ThenColumn, NowColumn, DifferenceColumn };
/// Of a row: the state has something to bring back for it.
constexpr int restorableRole = Qt::UserRole;
/// Of a group's row, whose text may be a caption.
constexpr int groupNameRole = Qt::UserRole + 1;

// The scheme that an id of teamDifference() stands for; of equal names the first.
const VOColorScheme *schemeIn(const VOColorSchemeTeam &team, const VOColorSchemeId &id)
{
    for (const VOColorSchemeGroup &group : team.groups) {
        if (group.name != id.group)
            continue;
        for (const VOColorScheme &scheme : group.schemes) {
            if (scheme.name == id.scheme)
                return &scheme;
        }
    }
    return nullptr;
}

void showStrip(QTreeWidgetItem *row, int column, const VOColorScheme *scheme)
{
    if (!scheme || !scheme->colorRamp) {
        row->setText(column, QStringLiteral("–"));
        return;
    }
    const QPixmap strip = colorRampPreviewPixmap(scheme->colorRamp, stripSize);
    QIcon icon(strip);
    icon.addPixmap(strip, QIcon::Selected); // or a selected row would tint the colors
    row->setIcon(column, icon);
}

} // namespace

HistoryDialog::HistoryDialog(QWidget *parent)
    : QDialog(parent)
    , history(*VOColorSchemeManager::instance())
    , teamBox(new QComboBox(this))
    , stateList(new QListWidget(this))
    , hint(new QLabel(this))
    , tree(new QTreeWidget(this))
{
    setWindowTitle(tr("Scheme history"));
    teamBox->setObjectName(QStringLiteral("team"));
    teamBox->addItem(tr("Custom schemes"), int(CustomTeam));
    teamBox->addItem(tr("Favorite schemes"), int(FavoriteTeam));
    teamBox->addItem(tr("Built-in schemes"), int(DefaultTeam));
    stateList->setObjectName(QStringLiteral("states"));
    stateList->setAccessibleName(tr("Saved states"));
    stateList->setMinimumWidth(fontMetrics().averageCharWidth() * 24); // a date and a time

    hint->setObjectName(QStringLiteral("hint"));
    hint->setWordWrap(true);
    tree->setObjectName(QStringLiteral("differences"));
    tree->setAccessibleName(tr("What differs from the present schemes"));
    tree->setHeaderLabels({tr("Scheme"), tr("Then"), tr("Now"), tr("Since then")});
    tree->setIconSize(stripSize);
    tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    tree->header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    for (const Column column : {ThenColumn, NowColumn, DifferenceColumn})
        tree->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    tree->header()->setStretchLastSection(false);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    restoreButton = buttons->addButton(tr("Restore selected"), QDialogButtonBox::ActionRole);
    restoreButton->setObjectName(QStringLiteral("restoreSelected"));
    restoreTeamButton = buttons->addButton(tr("Restore all…"), QDialogButtonBox::ActionRole);
    restoreTeamButton->setObjectName(QStringLiteral("restoreTeam"));

    auto *top = new QHBoxLayout;
    auto *teamLabel = new QLabel(tr("&Show:"), this);
    teamLabel->setBuddy(teamBox);
    top->addWidget(teamLabel);
    top->addWidget(teamBox);
    top->addStretch();
    auto *right = new QWidget(this);
    auto *rightColumn = new QVBoxLayout(right);
    rightColumn->setContentsMargins(0, 0, 0, 0);
    rightColumn->addWidget(hint);
    rightColumn->addWidget(tree);
    auto *halves = new QSplitter(this);
    halves->addWidget(stateList);
    halves->addWidget(right);
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    auto *column = new QVBoxLayout(this);
    column->addLayout(top);
    column->addWidget(halves);
    column->addWidget(buttons);
    const QSize kept = appSettings().value(sizeKey).toSize();
    const QSize most = screen()->availableGeometry().size();
    resize((kept.isValid() ? kept : startSize).boundedTo(most));

    connect(teamBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &HistoryDialog::showStates);
    connect(stateList, &QListWidget::currentRowChanged, this, &HistoryDialog::showDifferences);
    connect(tree, &QTreeWidget::itemSelectionChanged, this, &HistoryDialog::updateButtons);
    connect(restoreButton, &QPushButton::clicked, this, &HistoryDialog::restoreSelected);
    connect(restoreTeamButton, &QPushButton::clicked, this, &HistoryDialog::restoreTeam);
    connect(buttons, &QDialogButtonBox::rejected, this, &HistoryDialog::reject);
    showStates();
}

void HistoryDialog::done(int result)
{
    if (!isMaximized())
        appSettings().setValue(sizeKey, size());
    QDialog::done(result);
}

void HistoryDialog::showStates()
{
    const int row = stateList->currentRow();
    const std::uint32_t chosen = row < 0 ? 0 : states[std::size_t(row)].number;
    const VOTeamKind team = VOTeamKind(teamBox->currentData().toInt());
    const bool sameTeam = row >= 0 && states[std::size_t(row)].team == team;
    {
        const QSignalBlocker quiet(stateList);
        stateList->clear();
        states = history.states(team);
        int current = 0;
        for (std::size_t i = 0; i < states.size(); ++i) {
            const QDateTime saved = states[i].saved.toLocalTime();
            auto *item =
                new QListWidgetItem(QLocale().toString(saved, QLocale::ShortFormat), stateList);
            item->setToolTip(QLocale().toString(saved, QLocale::LongFormat));
            if (sameTeam && states[i].number == chosen)
                current = int(i);
        }
        stateList->setCurrentRow(states.empty() ? -1 : current);
    }
    showDifferences();
}

void HistoryDialog::showDifferences()
{
    tree->clear();
    const int row = stateList->currentRow();
    VOColorSchemeTeam then;
    if (row < 0) {
        hint->setText(
            tr("Nothing was replaced yet. Every save that changes these schemes keeps what "
               "they were before."));
    } else if (!history.read(states[std::size_t(row)], then)) {
        hint->setText(tr("This state cannot be read any more."));
        restoreTeamButton->setEnabled(false);
        updateButtons();
        return;
    } else {
        const VOColorSchemeTeam &now =
            VOColorSchemeManager::instance()->team(states[std::size_t(row)].team);
        const VOTeamDifference difference = teamDifference(then, now);
        for (const auto *list : {&difference.removed, &difference.changed, &difference.added}) {
            for (const VOColorSchemeId &id : *list)
                addRow(toQString(id.group),
                       list == &difference.added ? nullptr : schemeIn(then, id),
                       list == &difference.removed ? nullptr : schemeIn(now, id));
        }
        tree->expandAll();
        hint->setText(difference.isEmpty() ? tr("All schemes are as they were then.")
                                           : tr("Since then: %1 deleted, %2 changed, %3 added.")
                                                 .arg(difference.removed.size())
                                                 .arg(difference.changed.size())
                                                 .arg(difference.added.size()));
    }
    restoreTeamButton->setEnabled(tree->topLevelItemCount() > 0);
    updateButtons();
}

QTreeWidgetItem *HistoryDialog::groupRow(const QString &group)
{
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        if (tree->topLevelItem(i)->data(NameColumn, groupNameRole).toString() == group)
            return tree->topLevelItem(i);
    }
    const VOTeamKind team = VOTeamKind(teamBox->currentData().toInt());
    auto *row = new QTreeWidgetItem(tree, {groupCaption(team, toVOString(group))});
    row->setData(NameColumn, groupNameRole, group);
    row->setData(NameColumn, restorableRole, false);
    return row;
}

void HistoryDialog::addRow(const QString &group, const VOColorScheme *then,
                           const VOColorScheme *now)
{
    QTreeWidgetItem *const parent = groupRow(group);
    auto *row = new QTreeWidgetItem(parent, {toQString((then ? then : now)->name)});
    row->setToolTip(NameColumn, Qt::convertFromPlainText(row->text(NameColumn)));
    showStrip(row, ThenColumn, then);
    showStrip(row, NowColumn, now);
    row->setText(DifferenceColumn, !now ? tr("deleted") : then ? tr("changed") : tr("added"));
    row->setData(NameColumn, restorableRole, then != nullptr);
    if (then)
        parent->setData(NameColumn, restorableRole, true);
}

void HistoryDialog::updateButtons()
{
    const QList<QTreeWidgetItem *> rows = tree->selectedItems();
    restoreButton->setEnabled(std::any_of(rows.begin(), rows.end(), [](const QTreeWidgetItem *row) {
        return row->data(NameColumn, restorableRole).toBool();
    }));
}

// A group's row brings back the group as it was, a scheme's row that scheme only.
void HistoryDialog::restoreSelected()
{
    const VOSavedState state = states[std::size_t(stateList->currentRow())];
    bool done = true;
    for (const QTreeWidgetItem *row : tree->selectedItems()) {
        const QTreeWidgetItem *const group = row->parent();
        if (!row->data(NameColumn, restorableRole).toBool() || (group && group->isSelected()))
            continue;
        const VOString groupName =
            toVOString((group ? group : row)->data(NameColumn, groupNameRole).toString());
        done = (group ? history.restoreScheme(state, groupName, toVOString(row->text(NameColumn)))
                      : history.restoreGroup(state, groupName)) &&
               done;
    }
    finishRestoring(done);
}

void HistoryDialog::restoreTeam()
{
    QMessageBox box(QMessageBox::Question, tr("Scheme history"),
                    tr("Make all of these schemes what they were then?"), QMessageBox::Cancel,
                    this);
    box.setInformativeText(tr("What they are now becomes the newest entry of the history."));
    QPushButton *restore = box.addButton(tr("Restore"), QMessageBox::AcceptRole);
    restore->setObjectName(QStringLiteral("restore"));
    box.exec();
    if (box.clickedButton() == restore)
        finishRestoring(history.restoreTeam(states[std::size_t(stateList->currentRow())]));
}

void HistoryDialog::finishRestoring(bool done)
{
    if (!done) {
        QMessageBox::warning(this, tr("Scheme history"), tr("This state cannot be read any more."),
                             QMessageBox::Close);
    }
    // Whoever listens to the store tells of a save that fails.
    VOColorSchemeManager::instance()->save();
    showStates();
    Q_EMIT restored();
}

} // namespace mapviewer
