#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"
#include "vomap/VOColorRamp.h"

#include <QDialog>
#include <QItemSelection>

#include <memory>

class VTColorModel;

namespace VTObjects {
class VOColorScheme;
class VOColorSchemeGroup;
} // namespace VTObjects

namespace Ui {
class VTColorSchemeEditorBase;
}

namespace vtcontrolcolorscheme {
class DialogMemory;
class LongTextField;
} // namespace vtcontrolcolorscheme

/// The modal dialog in which one scheme of a group is created or edited: its name, author,
/// description, and the ramp with its kind, level, seed, bounds and colours. Run it with exec():
///
///     VTColorSchemeEditor editor(index, &group, false, this);
///     if (editor.exec() == QDialog::Accepted)
///         ... // group.schemes[index] holds what the user made
///
/// The widgets are the working state: until OK the scheme stays as it is, and OK gives it a new
/// ramp, so that pointers to the old one dangle. Nothing is saved to disk.
///
/// Tab leaves the list of colours, and F6 leads back to it. There Return picks a colour for the
/// row, and further keys do what the tool buttons do, whose tool-tips name them.
///
/// A scheme without a ramp opens with the default ramp. What the controls cannot hold, such as a
/// level outside 2..1000, they show as the nearest value that they can.
class VTCONTROLCOLORSCHEME_EXPORT VTColorSchemeEditor : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorSchemeEditor)
public:
    /// Edits the scheme at `index` of `group`, which is not owned and must outlive the dialog; the
    /// scheme must stay at its place meanwhile. Where there is none, or no group, the dialog opens
    /// with the default ramp, and its OK button rejects.
    ///
    /// With `isNew` the dialog completes a scheme that the caller has appended a moment ago, and
    /// its Cancel button removes that scheme again. Deliberate: Escape and the title bar's close
    /// button leave it in the group.
    VTColorSchemeEditor(int index, VTObjects::VOColorSchemeGroup *group, bool isNew,
                        QWidget *parent = nullptr);
    ~VTColorSchemeEditor() override;

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;

private Q_SLOTS:
    void onOk();
    void onClose();
    void onNameChanged(const QString &text);
    void onPreview();
    void onLoadScheme();
    void onAddColor();
    void onDeleteColor();
    void onSelectAll();
    void onInvetSelect();
    void onColorAntitone();
    void onTop();
    void onUp();
    void onBottom();
    void onDown();
    void onSelectionChanged(const QItemSelection &selected, const QItemSelection &deselected);
    void onColorDoubleClicked(const QModelIndex &index);
    void onTypeChanged(int index);

private:
    void initUi();
    void setTexts();
    void describeParts();
    void describePreview(VTObjects::VOColorRamp *ramp);
    void setupConnections();
    void setupKeys();
    void typeChangeUi(VTObjects::VOColorRamp::ColorRampType type);
    void viewScheme(const VTObjects::VOColorScheme &scheme);
    void showPreview(VTObjects::VOColorRamp *ramp);
    /// A new ramp made of what the widgets show; null for a kind that does not exist.
    std::unique_ptr<VTObjects::VOColorRamp> updateColorRamp() const;

    /// The edited scheme in its group; null if there is none at the index.
    VTObjects::VOColorScheme *currentScheme() const;
    /// False, with nothing changed, if one of the rows does not exist.
    bool swapColors(int row, int otherRow);
    void announceChange(int firstRow, int lastRow);
    void showMovedTo(int row);
    void onListChanged();
    /// Enables those of the four moves that the selection allows.
    void enableMoves();

    std::unique_ptr<Ui::VTColorSchemeEditorBase> ui;
    bool isNewScheme = false;
    int schemeIndex = -1;
    VTObjects::VOColorSchemeGroup *schemeGroup = nullptr; // not owned
    VTColorModel *colorModel = nullptr;
    bool hasBeenSelected = false;                            // until then all moves are enabled
    vtcontrolcolorscheme::LongTextField *author = nullptr;   // owned by its field
    vtcontrolcolorscheme::LongTextField *describe = nullptr; // owned by its field
    vtcontrolcolorscheme::DialogMemory *memory = nullptr;    // once it is set up
};
