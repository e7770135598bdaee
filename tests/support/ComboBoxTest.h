#pragma once

#include "tests/support/TestStore.h"

#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"

#include <QColor>
#include <QImage>
#include <QObject>

#include <memory>

/// Counts how many of its kind are alive.
class CountedRamp : public VTObjects::VOEvenColorRamp
{
public:
    CountedRamp() { ++alive; }
    CountedRamp(const CountedRamp &other)
        : VTObjects::VOEvenColorRamp(other)
    {
        ++alive;
    }
    CountedRamp &operator=(const CountedRamp &) = delete;
    ~CountedRamp() override { --alive; }
    VTObjects::VOColorRamp *clone() override { return new CountedRamp(*this); }

    static int alive;
};

/// A picker whose protected parts a test may call.
class OpenComboBox : public VTColorSchemeComboBox
{
public:
    using VTColorSchemeComboBox::setScheme;
    using VTColorSchemeComboBox::VTColorSchemeComboBox;

    int paintings = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paintings;
        VTColorSchemeComboBox::paintEvent(event);
    }
};

/// The style sheet of every picker.
constexpr const char *faceStyle =
    "QToolButton{border-radius: 2px; min-height:20;border: 1px groove "
    "gray;border-style: outset;}";

/// The style sheet asks for a height of its own; a layout may give less.
void forceSize(QWidget *widget, QSize size);
VTObjects::VOColorScheme solidScheme(const QString &name, const VTObjects::rgb_color<float> &color);
/// A group of two schemes, red and green; the blue part tells the group.
VTObjects::VOColorSchemeGroup redAndGreen(const QString &name, float blue);
/// The first colour of the current ramp.
QColor firstColor(VTColorSchemeComboBox &box);
/// The face of a picker of 150 x 20 px.
QImage face(VTColorSchemeComboBox &box);
/// The middle of the strip in the face.
QColor faceColor(VTColorSchemeComboBox &box);
/// What the drop-down shows after a click: the caption of the group bar, then the scheme names.
QStringList listed(VTColorSchemeComboBox &box);
VTObjects::VOColorSchemeManager *store();

/// What the tests of the picker share: a store for each with groups that
/// redAndGreen() made in all three teams.
class ComboBoxTest : public QObject
{
    Q_OBJECT

protected:
    void setUp();
    void tearDown();

    std::unique_ptr<TestStore> testStore;
};
