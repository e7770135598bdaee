#pragma once

#include "colorscheme/manager/ColorSchemeNodeInfo.h"
#include "colorscheme/manager/VTDiscardedSchemes.h"
#include "colorscheme/vtcontrolcolorscheme_export.h"
#include "vomap/VOColorSchemeId.h"
#include "vomap/VOColorSchemeTeam.h"

#include <QDialog>
#include <QIcon>
#include <QSet>

#include <memory>
#include <optional>
#include <vector>

class QMenu;
class QStandardItem;
class QStandardItemModel;

namespace Ui {
class VTColorSchemeManagerBase;
}

namespace vtcontrolcolorscheme {
class ManagerKeys;
class WorkingCopies;
struct GroupPlace;
} // namespace vtcontrolcolorscheme

/// The dialog in which the user manages all colour schemes: a tree of teams and groups, the table
/// of the schemes of one group, and commands for both.
///
/// It works on copies of the store's teams, taken when it is constructed. OK asks whether to save
/// what was modified, writes the copies back and lets the store save itself; everything else
/// discards them. Run it with exec(), one at a time. A store that cannot be saved is not reported
/// by the dialog; outcome() and VOColorSchemeNotifier tell.
class VTCONTROLCOLORSCHEME_EXPORT VTColorSchemeManager : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorSchemeManager)
public:
    /// Shows the first built-in group.
    explicit VTColorSchemeManager(QWidget *parent = nullptr);
    /// One that begins with changes that an earlier one has discarded: nothing of them is saved
    /// until this one is left by OK, and what the store got since stays.
    VTColorSchemeManager(const VTDiscardedSchemes &again, QWidget *parent);
    ~VTColorSchemeManager() override;

    /// Shows the scheme's group and makes the scheme current, before exec() or while it is open.
    /// False, with nothing changed, if the manager does not have or show it.
    bool showScheme(const VTObjects::VOColorSchemeId &id);
    /// Lets the user only look at the groups of a team: one of the first three NodeType values.
    /// They can be copied and exported; commands that would change them do nothing, as commands do
    /// that do not suit the current node. Groups that the host has added are always so.
    void setTeamReadOnly(NodeType team, bool readOnly);

    /// How it ended, after exec().
    enum Outcome {
        NothingChanged, ///< OK or not, there was nothing to save
        Saved,
        Discarded, ///< changes were dropped: by any way out but OK, or by the answer to its
                   ///< question
        SaveFailed ///< the store has the changes in memory, and waits for another save()
    };
    Outcome outcome() const;
    /// What was discarded; empty if the outcome is another one.
    VTDiscardedSchemes discarded();

    /// A new menu of the built-in groups but for the one shown; its actions copy the selected
    /// schemes there. The caller owns it.
    QMenu *defaultMenu();
    /// The same for the user's groups.
    QMenu *customMenu();

    /// Copies schemes of the shown group, named by their rows, into the favourites group that has
    /// the name of the shown one; makes that group first if there is none. Schemes that are there
    /// already are copied once more. Nothing without a shown group.
    void onFavorite(const QSet<int> &rows);

    /// What the commands change until OK: for tests, as its class is no host's business.
    const vtcontrolcolorscheme::WorkingCopies &workingCopies() const { return *copies; }

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

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
    void retranslate();

    QStandardItem *appendTeam(const QString &icon, const QString &text, int teamKind);
    void appendGroup(QStandardItem *team, const QString &text, const VTObjects::VOString &name);
    void showGroup(vtcontrolcolorscheme::GroupPlace place);
    QMenu *copyMenu(const QStandardItem *team, void (VTColorSchemeManager::*slot)(bool));
    /// The place of the group that an action of such a menu stands for; nowhere if there is none.
    vtcontrolcolorscheme::GroupPlace targetOf(const QObject *action, int teamKind) const;
    /// The item of the tree's current node; null if there is none.
    QStandardItem *currentItem() const;
    /// The place of the group that an item of the tree stands for.
    vtcontrolcolorscheme::GroupPlace placeOf(const QStandardItem *item) const;
    /// The place of the group that the table shows.
    vtcontrolcolorscheme::GroupPlace shownPlace() const;
    /// Whether the table shows a group of the working copies.
    bool showsGroup() const;
    /// Marks the nodes of groups that cannot be changed, and the table that shows one.
    void showReadOnly();
    /// The schemes at those rows of the table, as far as they exist.
    std::vector<VTObjects::VOColorScheme> shownSchemes(const QVector<int> &rows) const;
    /// Copies the selected schemes into a group.
    void copySelected(vtcontrolcolorscheme::GroupPlace target);
    void appendSchemes(vtcontrolcolorscheme::GroupPlace place,
                       const std::vector<VTObjects::VOColorScheme> &schemes);

    std::unique_ptr<Ui::VTColorSchemeManagerBase> ui;
    std::unique_ptr<vtcontrolcolorscheme::WorkingCopies> copies;
    std::optional<Outcome> m_outcome; // since it was last shown
    QIcon groupIcon;
    QStandardItem *defaultItem = nullptr;
    QStandardItem *customItem = nullptr;
    QStandardItem *favoriteItem = nullptr;
    QStandardItemModel *teamModel = nullptr;
    vtcontrolcolorscheme::ManagerKeys *keys = nullptr;
};
