#include "colorscheme/picker/VTColorSchemeComboBox.h"

#include "colorscheme/accessibility/describeColorRamp_p.h"
#include "colorscheme/model/builtInGroupCaptions_p.h"
#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "colorscheme/model/defaultColorRamp_p.h"
#include "colorscheme/picker/VTColorSchemeMenu.h"
#include "colorscheme/picker/defaultGroupCaptions_p.h"
#include "colorscheme/picker/drawKeyboardFocus_p.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QPolygonF>
#include <QStyleOptionToolButton>
#include <QToolTip>

#include <algorithm>
#include <memory>
#include <utility>

using vtcontrolcolorscheme::builtInGroupCaptions;
using vtcontrolcolorscheme::defaultColorRamp;
using vtcontrolcolorscheme::defaultGroupCaption;
using vtcontrolcolorscheme::defaultGroupCaptions;
using vtcontrolcolorscheme::describeColorRamp;
using vtcontrolcolorscheme::drawKeyboardFocus;
using VTObjects::builtInGroups;
using VTObjects::DefaultTeam;
using VTObjects::teamKindOf;
using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorRamp;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeId;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOColorSchemeNotifier;
using VTObjects::VOColorSchemeTeam;

namespace {

const QSize previewSize(140, 20);

const VOColorSchemeTeam &teamOf(const QString &team)
{
    return VOColorSchemeManager::instance()->team(teamKindOf(team));
}

} // namespace

VTColorSchemeComboBox::VTColorSchemeComboBox(QWidget *parent)
    : VTColorSchemeButton(parent)
{
    setMinimumSize(150, 20);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed); // fills its column of a form
    setStyleSheet(QStringLiteral("QToolButton{border-radius: 2px; min-height:20;border: 1px groove "
                                 "gray;border-style: outset;}"));
    connect(this, &QToolButton::clicked, this, &VTColorSchemeComboBox::showMenu);
    setTexts();
    const VOColorSchemeNotifier *notifier = VOColorSchemeNotifier::instance();
    connect(notifier, &VOColorSchemeNotifier::schemesMoved, this,
            &VTColorSchemeComboBox::onSchemesMoved);
    connect(notifier, &VOColorSchemeNotifier::storeChanged, this,
            &VTColorSchemeComboBox::onStoreChanged);
}

VTColorSchemeComboBox::~VTColorSchemeComboBox()
{
    if (dropDown)
        dropDown->letGoOfThePicker();
}

void VTColorSchemeComboBox::setTexts()
{
    for (std::size_t i = 0; i < builtInGroups.size(); ++i)
        defaultGroupCaptions[builtInGroups[i]] = QObject::tr(builtInGroupCaptions[i].ofPicker);
    if (accessibleName() == accessibleNameSet) {
        accessibleNameSet = tr("Color scheme");
        setAccessibleName(accessibleNameSet);
    }
    setAccessibleDescription(describeColorRamp(scheme.colorRamp));
}

void VTColorSchemeComboBox::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QToolButton::changeEvent(event);
}

VOColorRamp *VTColorSchemeComboBox::currentColorRamp()
{
    if (!scheme.colorRamp)
        scheme.colorRamp = defaultColorRamp().release();
    return scheme.colorRamp;
}

void VTColorSchemeComboBox::setColorRamp(VOColorRamp *ramp)
{
    if (!ramp)
        return;
    // The clone comes first: the ramp may be the picker's own.
    VOColorRamp *const copy = ramp->clone();
    delete scheme.colorRamp;
    scheme.colorRamp = copy;
    id = VOColorSchemeId(); // whatever its name, the colours are not the store's
    updatePreview();
    Q_EMIT currentSchemeChanged();
}

bool VTColorSchemeComboBox::setDefaultGroup(const QString &team, const QString &group,
                                            int schemeIndex)
{
    const VOColorSchemeTeam &records = teamOf(team);
    int index = records.index(toVOString(group));
    // Deliberate: only the default team has a stand-in for an unknown name.
    if (index < 0 && teamKindOf(team) == DefaultTeam)
        index = 0;
    return showGroup(team, records, index, schemeIndex);
}

bool VTColorSchemeComboBox::setDefaultGroup(const QString &team, int group, int schemeIndex)
{
    return showGroup(team, teamOf(team), group, schemeIndex);
}

bool VTColorSchemeComboBox::showGroup(const QString &team, const VOColorSchemeTeam &records,
                                      int group, int schemeIndex)
{
    if (group < 0 || static_cast<std::size_t>(group) >= records.groups.size())
        return false;
    groupIndex = group;
    const VOColorSchemeGroup &shown = records.groups[static_cast<std::size_t>(group)];
    if (schemeIndex >= 0 && static_cast<std::size_t>(schemeIndex) < shown.schemes.size())
        setScheme(shown.schemes[static_cast<std::size_t>(schemeIndex)]);
    else
        schemeIndex = -1;
    teamName = team;
    dropNames();
    noteGroup();
    if (schemeIndex >= 0)
        noteScheme(shown, schemeIndex);
    Q_EMIT currentSchemeChanged();
    return true;
}

void VTColorSchemeComboBox::setScheme(const VOColorScheme &scheme)
{
    this->scheme = scheme;
    id = VOColorSchemeId();
    updatePreview();
}

void VTColorSchemeComboBox::updatePreview()
{
    preview = colorRampPreviewPixmap(scheme.colorRamp, previewSize);
    update();
    setAccessibleDescription(describeColorRamp(scheme.colorRamp));
}

bool VTColorSchemeComboBox::event(QEvent *event)
{
    const bool isAsked = event->type() == QEvent::ToolTip && toolTip().isEmpty();
    const QString text = isAsked ? toolTipText() : QString();
    if (text.isEmpty())
        return VTColorSchemeButton::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text, this);
    return true;
}

// Names are no rich text, whatever is in them.
QString VTColorSchemeComboBox::toolTipText() const
{
    const QString name = toQString(scheme.name).toHtmlEscaped();
    const VOColorSchemeId current = currentSchemeId();
    QString group = toQString(current.group);
    if (teamKindOf(toQString(current.team)) == DefaultTeam)
        group = defaultGroupCaption(current.group);
    if (name.isEmpty() || group.isEmpty())
        return name.isEmpty() ? QString() : QStringLiteral("<qt>%1</qt>").arg(name);
    return QStringLiteral("<qt>%1<br>%2</qt>").arg(name, group.toHtmlEscaped());
}

void VTColorSchemeComboBox::paintEvent(QPaintEvent *event)
{
    VTColorSchemeButton::paintEvent(event);

    QPainter painter(this);
    const double w = width();
    const double arrowArea = std::min(w - 0.8 * w, 12.0);
    const double separator = w - arrowArea;
    const double bottom = height() - 1 - 4;
    painter.drawLine(QLineF(separator, SPLITOR_MARGIN, separator, bottom));

    const double left = separator + (arrowArea - ARROW_WIDTH) / 2;
    const double center = (height() - 4) / 2.0;
    const double odd = height() % 2 != 0 ? 1.0 : 0.0;
    const QPolygonF arrow({QPointF(left - odd, center), QPointF(left + ARROW_WIDTH, center),
                           QPointF(left + ARROW_WIDTH / 2.0 - odd / 2, center + ARROW_HEIGHT - 1)});
    painter.setBrush(QBrush(Qt::black, Qt::SolidPattern));
    painter.drawPolygon(arrow, Qt::OddEvenFill);

    // White beside black: an etched line.
    painter.setPen(Qt::white);
    painter.drawLine(QLineF(separator - 1, SPLITOR_MARGIN, separator - 1, bottom));

    // Deliberate: the strip lies 3 pixels inside and not ICON_MARGIN.
    const QRectF target(3.0, 3.0, static_cast<int>(separator - 4), height() - 5);
    if (isEnabled() || preview.isNull()) {
        painter.drawPixmap(target, preview, preview.rect());
    } else {
        QStyleOptionToolButton option;
        initStyleOption(&option);
        const QPixmap grey = style()->generatedIconPixmap(QIcon::Disabled, preview, &option);
        painter.drawPixmap(target, grey, grey.rect());
    }
    drawKeyboardFocus(painter, this);
}

void VTColorSchemeComboBox::keyPressEvent(QKeyEvent *event)
{
    byKey = true;
    const QPointer<VTColorSchemeComboBox> alive(this);
    const bool altDown = event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier;
    if (altDown || event->key() == Qt::Key_F4)
        showMenu();
    else
        VTColorSchemeButton::keyPressEvent(event);
    if (alive)
        byKey = false;
}

void VTColorSchemeComboBox::keyReleaseEvent(QKeyEvent *event)
{
    byKey = true;
    const QPointer<VTColorSchemeComboBox> alive(this);
    VTColorSchemeButton::keyReleaseEvent(event);
    if (alive)
        byKey = false;
}

void VTColorSchemeComboBox::showMenu()
{
    if (readOnly)
        return;
    QString caption;
    VOColorSchemeGroup group;
    const int index = listedGroup();
    if (index >= 0) {
        groupIndex = index;
        noteGroup();
        group = teamOf(teamName).groups[static_cast<std::size_t>(index)];
        caption = teamKindOf(teamName) == DefaultTeam ? defaultGroupCaption(group.name)
                                                      : toQString(group.name);
    }
    const QPointer<VTColorSchemeComboBox> alive(this); // what is told of a choice may do anything
    {
        VTColorSchemeMenu menu(caption, group, this);
        menu.setOpenedByKey(std::exchange(byKey, false));
        dropDown = &menu;
        menu.exec();
        if (alive)
            dropDown = nullptr;
    }
    // Another group, and no scheme of it.
    if (alive && std::exchange(untold, false))
        Q_EMIT currentSchemeChanged();
}
