#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"
#include "vomap/VOColorScheme.h"

#include <QPixmap>
#include <QString>
#include <QToolButton>

namespace VTObjects {
class VOColorRamp;
class VOColorSchemeTeam;
} // namespace VTObjects

/// A compact picker: a button whose face shows the strip of the current scheme's ramp. A click
/// opens a drop-down with the schemes of one group.
///
/// The picker keeps a copy of its scheme. Choosing a scheme does not touch the store; only "User
/// define" in the drop-down adds to it.
///
/// The accessible description always tells the colours that the face shows; the accessible name is
/// the host's to change.
class VTCONTROLCOLORSCHEME_EXPORT VTColorSchemeComboBox : public QToolButton
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorSchemeComboBox)
public:
    /// Chooses no scheme: the face stays empty until a setter runs.
    explicit VTColorSchemeComboBox(QWidget *parent = nullptr);
    ~VTColorSchemeComboBox() override;

    /// The current ramp, never null: without a scheme it becomes the default ramp, which the face
    /// does not show. The picker owns it; it lives until the scheme changes in any way or the
    /// picker goes, so clone() what shall be kept.
    VTObjects::VOColorRamp *currentColorRamp();
    /// Shows a clone of the ramp; the caller keeps its own. Name, author and description of the
    /// current scheme stay. The picker's own ramp is allowed; null is ignored.
    void setColorRamp(VTObjects::VOColorRamp *ramp);

    /// Chooses the group whose schemes the drop-down lists and, where `schemeIndex` names a scheme
    /// of it, makes that scheme current; another index leaves the current scheme and succeeds.
    /// Teams are "Default" and "Custom" in any letter case; every other text means the favourites.
    ///
    /// False, with nothing changed, if there is no such group. Deliberate: an unknown name in the
    /// default team means its first group instead.
    bool setDefaultGroup(const QString &team, const QString &group, int schemeIndex);
    /// The same with the group given by its position; one that is out of range gives false in
    /// every team.
    bool setDefaultGroup(const QString &team, int group, int schemeIndex);

Q_SIGNALS:
    /// The user chose a scheme or made one. The setters do not emit it.
    void currentRampChanged();

protected:
    /// Shows a copy of the scheme.
    void setScheme(const VTObjects::VOColorScheme &scheme);
    void paintEvent(QPaintEvent *event) override;
    /// Besides the keys of every button: Alt+Down and F4 open the drop-down.
    void keyPressEvent(QKeyEvent *event) override;

private Q_SLOTS:
    void showMenu();

private:
    friend class VTColorSchemeMenu; // the drop-down sets scheme, team and group as the user chooses

    static const int ARROW_WIDTH = 6;
    static const int ARROW_HEIGHT = 4;
    static const int ICON_MARGIN = 5;
    static const int SPLITOR_MARGIN = 5;

    void updatePreview();
    bool showGroup(const QString &team, const VTObjects::VOColorSchemeTeam &records, int group,
                   int schemeIndex);

    QPixmap preview;
    VTObjects::VOColorScheme scheme;
    QString teamName;
    int groupIndex = -1;
};
