#pragma once

#include "colorscheme/picker/VTColorSchemeButton.h"
#include "colorscheme/vtcontrolcolorscheme_export.h"
#include "vomap/VOColorScheme.h"
#include "vomap/VOColorSchemeId.h"

#include <QPixmap>
#include <QString>

namespace VTObjects {
class VOColorRamp;
class VOColorSchemeGroup;
class VOColorSchemeMoves;
class VOColorSchemeTeam;
enum VOTeamKind : int;
} // namespace VTObjects

class VTColorSchemeMenu;

/// A compact picker: a button whose face shows the strip of the current scheme's ramp. A click
/// opens a drop-down with the schemes of one group.
///
/// The picker keeps a copy of its scheme. Choosing a scheme does not touch the store; only "User
/// define" in the drop-down adds to it. It also knows which scheme of the store that was: what a
/// manager renames or moves stays picked, and its group stays listed wherever it stands.
///
/// The accessible description always tells the colours that the face shows; the accessible name is
/// the host's to change.
class VTCONTROLCOLORSCHEME_EXPORT VTColorSchemeComboBox : public VTColorSchemeButton
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorSchemeComboBox)
    /// The key of the team whose group is listed: "Default", "Custom", "Favorite"; empty at first.
    Q_PROPERTY(QString team READ team WRITE setTeam NOTIFY currentSchemeChanged)
    /// The name of the group that the drop-down lists; empty for none.
    Q_PROPERTY(QString group READ groupName WRITE setGroupName NOTIFY currentSchemeChanged)
    /// The name of the current scheme; empty for none.
    Q_PROPERTY(QString schemeName READ schemeName WRITE setSchemeName NOTIFY currentSchemeChanged)
    /// Whether the drop-down has its "User define" button.
    Q_PROPERTY(bool userDefineVisible READ isUserDefineVisible WRITE setUserDefineVisible)
    /// Whether the user can look at the picker only: no drop-down opens.
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly)
    /// Whether the face takes over what becomes of the scheme in the store. Off at first: the
    /// picker shows what was picked.
    Q_PROPERTY(bool followsStore READ followsStore WRITE setFollowsStore)
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

    /// What was picked: the picker's copy, whose ramp is null as long as nothing is shown. It
    /// lives as the ramp does.
    const VTObjects::VOColorScheme &currentScheme() const { return scheme; }
    /// Which scheme of the store that is, for settings and project files. Null if it is none: after
    /// setColorRamp() or setScheme(), and when the store does not have it any more. The first of
    /// its name where a group has two; currentScheme() is always the one that was picked.
    VTObjects::VOColorSchemeId currentSchemeId() const;
    /// Makes a scheme of the store current and lists its group. False, with nothing changed, if the
    /// store does not have it: here nothing stands in for an unknown name.
    bool setCurrentScheme(const VTObjects::VOColorSchemeId &id);

    QString team() const;
    QString groupName() const;
    QString schemeName() const;
    /// As properties are set, one by one and in any order: a name that means nothing yet, or not
    /// any more, waits for the others. The face changes as soon as all three name a scheme.
    void setTeam(const QString &team);
    void setGroupName(const QString &name);
    void setSchemeName(const QString &name);

    bool isUserDefineVisible() const { return userDefineVisible; }
    void setUserDefineVisible(bool visible) { userDefineVisible = visible; }
    bool isReadOnly() const { return readOnly; }
    void setReadOnly(bool on) { readOnly = on; }
    bool followsStore() const { return m_followsStore; }
    /// Turned on, it takes over at once what became of the scheme before.
    void setFollowsStore(bool on);

    /// For the drop-down, as the user goes on: the group that is listed (below 0: the team only), a
    /// scheme of it, and that this is what was chosen.
    void listGroup(VTObjects::VOTeamKind team, int group);
    void takeScheme(const VTObjects::VOColorSchemeGroup &group, int position);
    void tellChoice();

Q_SIGNALS:
    /// The user chose a scheme or made one. The setters do not emit it.
    void currentRampChanged();

protected:
    /// Shows a copy of the scheme.
    void setScheme(const VTObjects::VOColorScheme &scheme);
    void changeEvent(QEvent *event) override;
    /// Without a tool-tip of the host, it tells the names of the scheme and its group.
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    /// Besides the keys of every button: Alt+Down and F4 open the drop-down.
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private Q_SLOTS:
    void showMenu();

private:
    static const int ARROW_WIDTH = 6;
    static const int ARROW_HEIGHT = 4;
    static const int ICON_MARGIN = 5;
    static const int SPLITOR_MARGIN = 5;

    void updatePreview();
    /// Again after the language has changed.
    void setTexts();
    QString toolTipText() const;
    bool showGroup(const QString &team, const VTObjects::VOColorSchemeTeam &records, int group,
                   int schemeIndex);
    void noteGroup();
    bool isGroupNoted() const;
    int listedGroup() const;
    void noteScheme(const VTObjects::VOColorSchemeGroup &group, int position);
    const VTObjects::VOColorScheme *picked() const;
    void dropNames();
    void applyNames();
    bool follow();
    void onSchemesMoved(const VTObjects::VOColorSchemeMoves &moves);
    void onStoreChanged();

    QPixmap preview;
    QString accessibleNameSet; // a host may have set another one since
    VTObjects::VOColorScheme scheme;
    QString teamName;
    int groupIndex = -1;

    // The listed group by its name, by which it is found wherever it stands.
    struct ListedGroup
    {
        bool isKnown = false;
        VTObjects::VOString name;
        int number = 0;        // which of those of this name, from 0
        std::size_t among = 0; // so many groups had the team
        QString team;          // and this is where it was:
        int position = -1;
    };
    ListedGroup listed;
    VTObjects::VOColorSchemeId id; // of the current scheme; null if it is not the store's
    int idNumber = 0;              // which of those that the id names, from 0
    // Set as properties, and naming nothing yet; null for none.
    QString waitingGroup;
    QString waitingScheme;
    bool untold = false; // the user's choice, until the drop-down is closed
    bool userDefineVisible = true;
    bool readOnly = false;
    bool m_followsStore = false;
    bool byKey = false;                    // while a key is acted upon
    VTColorSchemeMenu *dropDown = nullptr; // the one that is open; not the picker's to delete
};
