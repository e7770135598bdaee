#pragma once

#include "colorscheme/editor/VTColorModel.h"
#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeGroup.h"

#include <QAction>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>

#include <memory>

/// The six bounds of an HSV random ramp, in the order of its fields.
struct HsvBounds
{
    int minH, maxH, minS, maxS, minV, maxV;
};

/// Colours and bounds that tests use where any would do.
namespace EditorColors {

const QVector<QColor> defaultSources{{196, 69, 57}, {255, 255, 191}, {48, 95, 207}};
const QVector<QColor> someColors{QColor(10, 20, 30), QColor(40, 50, 60), QColor(70, 80, 90),
                                 QColor(100, 110, 120)};
const QColor r(Qt::red);
const QColor g(Qt::green);
const QColor b(Qt::blue);
const QColor c(Qt::cyan);
const QColor k(Qt::black);
const QVector<QColor> fiveColors{r, g, b, c, k};
constexpr HsvBounds someBounds{10, 120, 20, 80, 30, 90};

} // namespace EditorColors

using RampPointer = std::unique_ptr<VTObjects::VOColorRamp>;

RampPointer evenRamp(const QVector<QColor> &sources, unsigned int level);
RampPointer predefinedRamp(const QVector<QColor> &sources, unsigned int level);
RampPointer randomRamp(int seed, unsigned int level);
RampPointer hsvRamp(int seed, const HsvBounds &bounds, unsigned int level);

/// A ramp of that kind over some of the EditorColors.
RampPointer rampOf(VTObjects::VOColorRamp::ColorRampType kind);
/// For a data function: the column "kind" and a row for each.
void addKinds();

/// The colours of a ramp as the toolkit's.
QVector<QColor> outputColors(VTObjects::VOColorRamp *ramp);
/// The strip as the editor shows it; a null image for a null ramp and one without colours.
QImage stripOf(VTObjects::VOColorRamp *ramp);

/// An editor on the middle one of three schemes ("Before", "Mine", "After"), or on a new last one,
/// and its widgets by their names. The editor is not shown.
class EditorUnderTest
{
public:
    enum Mode { EditMode, AddMode };

    explicit EditorUnderTest(RampPointer ramp, Mode mode = EditMode);
    ~EditorUnderTest();

    VTColorSchemeEditor &editor() { return *dialog; }
    VTObjects::VOColorScheme &scheme();
    const VTObjects::VOColorScheme &scheme() const;

    /// A part of the editor; the test program ends if there is none of that name.
    template <typename Part>
    Part *part(const char *name) const
    {
        auto *found = dialog->findChild<Part *>(QLatin1String(name));
        if (!found)
            qFatal("no part named %s", name);
        return found;
    }
    QTableView *view() const { return part<QTableView>("colorView"); }
    VTColorModel *model() const;
    QLineEdit *nameField() const { return part<QLineEdit>("lineEdit"); }
    QPushButton *ok() const { return part<QPushButton>("pushButton_ok"); }
    QSpinBox *box(const char *name) const { return part<QSpinBox>(name); }

    /// What stands in the boxes of the six bounds, in the order of HsvBounds.
    QVector<int> hsvValues() const;
    QVector<QColor> colors() const { return model()->colors; }
    void setColors(const QVector<QColor> &colors) { model()->setColors(colors); }
    /// The preview as it is shown.
    QImage preview() const;
    /// What OK stores now: presses it by its slot. The dialog can be used further.
    VTObjects::VOColorRamp *storedByOk();

    /// Chooses a kind as the user does it in the box.
    void chooseType(VTObjects::VOColorRamp::ColorRampType type);
    /// Calls a slot by its name.
    void run(const char *slot);
    void select(const QVector<int> &rows);
    QVector<int> selectedRows() const;
    /// The names of the enabled ones of the four moves, in the order Top, Bottom, Up, Down.
    QStringList enabledMoves() const;
    /// The reason that the name field warns of; null without a warning.
    QString warning() const;

    VTObjects::VOColorSchemeGroup group;

private:
    int index = 0;
    std::unique_ptr<VTColorSchemeEditor> dialog;
};

Q_DECLARE_METATYPE(VTObjects::VOColorRamp::ColorRampType)
