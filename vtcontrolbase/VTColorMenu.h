#pragma once

#include "vtcontrolbase/vtcontrolbase_export.h"

#include <QColor>
#include <QMenu>

namespace vtcontrolbase {
class ColorSwatchGrid;
class HexColorField;
} // namespace vtcontrolbase

/// A menu to pick a colour from: a grid of swatches, the colours that were picked last in this
/// process, a field for a hexadecimal colour, and the toolkit's colour dialog behind
/// "More colors…". The current colour is marked.
///
/// Set the colour, run the menu with exec() and read the colour again. Dismissed, the menu keeps
/// the colour that was set:
///
///     VTColorMenu menu(this);
///     menu.setColor(color);
///     menu.exec(position);
///     color = QColor(menu.getColor());
///
/// In the grid the arrow keys move and Return chooses; Tab goes from part to part; Escape
/// dismisses.
class VTCONTROLBASE_EXPORT VTColorMenu : public QMenu
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorMenu)
public:
    explicit VTColorMenu(QWidget *parent);
    ~VTColorMenu() override;

    /// The colour to start from. An invalid one counts as black.
    void setColor(QColor color);
    /// The chosen colour, opaque; the set one, with its alpha, as long as none was chosen. Black at
    /// first.
    QRgb getColor() const;

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void choose(const QColor &chosen);
    void onMoreColors();
    void refresh();
    void activateFocusedPart();

    vtcontrolbase::ColorSwatchGrid *palette = nullptr; // owned by its action, as are the two others
    vtcontrolbase::ColorSwatchGrid *recent = nullptr;
    vtcontrolbase::HexColorField *hexField = nullptr;
    QAction *paletteAction = nullptr; // owned by the menu, as are the two others
    QAction *recentAction = nullptr;
    QAction *recentTitle = nullptr;
    QColor color = Qt::black;
};
