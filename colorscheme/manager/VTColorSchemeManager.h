#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"
#include "vomap/VOColorSchemeTeam.h"

#include <QDialog>
#include <QIcon>
#include <QMap>
#include <QSet>

#include <memory>

class QMenu;
class QStandardItem;
class QStandardItemModel;

namespace Ui {
class VTColorSchemeManagerBase;
}

/// The dialog in which the user manages all colour schemes: a tree of teams and groups, the table
/// of the schemes of one group, and commands for both.
///
/// It works on copies of the store's teams, taken when it is constructed. OK asks whether to save
/// what was modified, writes the copies back and lets the store save itself; everything else
/// discards them. Run it with exec(), one at a time. A store that cannot be saved is not reported.
class VTCONTROLCOLORSCHEME_EXPORT VTColorSchemeManager : public QDialog
{
    Q_OBJECT
public:
    /// Shows the first built-in group.
    explicit VTColorSchemeManager(QWidget *parent = nullptr);
    ~VTColorSchemeManager() override;

    /// A new menu of the built-in groups but for the one shown; its actions copy the selected
    /// schemes there. The caller owns it.
    QMenu *defaultMenu();
    /// The same for the user's groups.
    QMenu *customMenu();

    /// Copies schemes of the shown group, named by their rows, into the favourites group that has
    /// the name of the shown one; makes that group first if there is none. Schemes that are there
    /// already are copied once more. Nothing without a shown group.
    void onFavorite(const QSet<int> &rows);

private Q_SLOTS:
    void onTeamViewClicked(const QModelIndex &index);
    void onClose();

    void onAddGroup();
    void onDeleteGroup();
    void onCopyDefaultGroup(bool checked);
    void onCopyCustomGroup(bool checked);

    void onAddScheme();
    void onEditScheme();
    void onDeleteScheme();
    void onSelectAll();
    void onInvertSelect();
    void onImportScheme();
    void onExportScheme();
    void onInformation(bool isOk);
    void onOk();

private:
    void initUi();
    void setupConnections();
    void updateData();

    QStandardItem *appendTeam(const QString &icon, const QString &text,
                              const VTObjects::VOString &name, int type);
    void appendGroup(QStandardItem *team, const QString &text, const VTObjects::VOString &name);
    void showGroup(int teamKind, int groupIndex);
    QMenu *copyMenu(const QStandardItem *team, void (VTColorSchemeManager::*slot)(bool));
    /// The item of the tree's current node; null if there is none.
    QStandardItem *currentItem() const;
    /// The position in the built-in team of the group with this name.
    int defaultGroupPosition(const VTObjects::VOString &name);
    /// One of the three working copies; null for a number that is no team's.
    VTObjects::VOColorSchemeTeam *teamOf(int teamKind);
    /// The group of a working copy; null if there is none there.
    VTObjects::VOColorSchemeGroup *groupOf(int teamKind, int groupIndex);
    /// Whether the table shows a group of the working copies.
    bool showsGroup();
    /// The schemes at those rows of the table, as far as they exist.
    std::vector<VTObjects::VOColorScheme> shownSchemes(const QVector<int> &rows) const;
    void appendSchemes(int teamKind, int groupIndex,
                       const std::vector<VTObjects::VOColorScheme> &schemes);

    std::unique_ptr<Ui::VTColorSchemeManagerBase> ui;
    QIcon groupIcon;
    QStandardItem *defaultItem = nullptr;
    QStandardItem *customItem = nullptr;
    QStandardItem *favoriteItem = nullptr;
    QStandardItemModel *teamModel = nullptr;
    QMap<VTObjects::VOString, QString> groupLabels;
    QMap<VTObjects::VOString, int> defaultGroupIndex;
    VTObjects::VOColorSchemeTeam defaultTeam;
    VTObjects::VOColorSchemeTeam customTeam;
    VTObjects::VOColorSchemeTeam favoriteTeam;
};
