#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

#include <QTableView>
#include <QVector>

#include <memory>

class QMenu;
class VTColorSchemeManager;
class VTColorSchemeModel;
class VTLineEditWidget;

namespace VTObjects {
class VOColorSchemeGroup;
}

/// The table of the manager: the schemes of one group. Names are edited in place, with a warning
/// while what is typed cannot be used; author and description too; a double-click on number or
/// preview opens the editor, and so does Return; F2 edits the name. Tab leaves the table. Works on
/// its model's copy of the group only.
///
/// A long text is one line that shows its beginning; hovering shows it whole.
///
/// To assistive tools it describes the colours of its current row, whose preview has no text.
///
/// The context menu and the favourites are there only for a view whose parent is a manager.
class VTCONTROLCOLORSCHEME_EXPORT VTColorSchemeView : public QTableView
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorSchemeView)
public:
    using QTableView::edit;

    explicit VTColorSchemeView(QWidget *parent = nullptr);
    ~VTColorSchemeView() override;

    /// Shows a copy of the group, which stands at `groupIndex` of the team; -1 for none.
    void setGroup(int teamKind, const int &groupIndex, const VTObjects::VOColorSchemeGroup &group);
    /// Lets nobody edit the schemes here. Off at first.
    void setReadOnly(bool on) { readOnly = on; }
    /// The model: never null, owned by the view.
    VTColorSchemeModel *schemeModel() const { return tableModel; }
    /// The rows that are selected as a whole, ascending.
    QVector<int> selectedRowNumbers() const;
    /// Selects these rows and nothing else, makes the first of them current and scrolls them into
    /// sight, or as many of them from the first on as there is room for.
    void showRows(int first, int last);
    /// Opens the editor on a row, as a child of `parent`; Ok marks the manager's data as modified.
    void editScheme(int row, QWidget *parent);
    /// Commits what is being typed in the table and closes its editor. Tool buttons do not take the
    /// keyboard, so the commands behind them call this before they touch the rows.
    void finishEditing();

    int teamKind = 0;    ///< the team of the shown group: one of the first three NodeType values
    int groupIndex = -1; ///< its position in the team, or -1

public Q_SLOTS:
    void reset() override;
    /// Asks for a folder and writes the selected schemes there, each into a file of its name.
    void onExportScheme();
    void onDoubleClicked(const QModelIndex &index);
    /// The two slots of the name editors, which they find by sender().
    void onNameEdited(const QString &name);
    void onNameEditingFinished();
    void onFavorite();

Q_SIGNALS:
    /// Whether the name that is being typed can be used.
    void information(bool isOk);

protected:
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

protected Q_SLOTS:
    void commitData(QWidget *editor) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    friend class VtColorSchemeNameDelegate; // which hears of ends that the view does not

    QString makeRenameName(int row) const;
    void makeNameUsable(VTLineEditWidget *editor);
    /// Whether it holds the name that the scheme has.
    bool isUnchanged(const VTLineEditWidget &editor) const;
    /// Emits information(true), unless it has been since the user last typed in this editor.
    void tellUsable(VTLineEditWidget *editor);
    /// From here on the editor has nothing to say any more.
    void endNaming(VTLineEditWidget *editor);
    void describeCurrentRow();
    void setTexts();
    /// Shows the editor's warning, or takes it away; true if the name can be used.
    bool judgeName(VTLineEditWidget *editor, const QString &name);

    QMenu *contextMenu = nullptr;
    QAction *copyAction = nullptr;
    QAction *exportAction = nullptr;
    QAction *defaultAction = nullptr;
    QAction *customAction = nullptr;
    QAction *favoriteAction = nullptr;
    bool readOnly = false;
    bool keyCameThroughViewport = false;
    VTColorSchemeModel *tableModel = nullptr;
    VTColorSchemeManager *manager = nullptr;
    // The submenus of the last right-click; an action does not own its menu.
    std::unique_ptr<QMenu> defaultGroups;
    std::unique_ptr<QMenu> customGroups;
};
