#include "colorscheme/picker/VTColorSchemeGroupMenu.h"

#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "colorscheme/picker/defaultGroupCaptions_p.h"
#include "colorscheme/picker/pickerAccessibility_p.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QVBoxLayout>

#include <algorithm>

using vtcontrolcolorscheme::defaultGroupCaption;
using vtcontrolcolorscheme::installPickerAccessibility;
using VTObjects::builtInGroups;
using VTObjects::CustomTeam;
using VTObjects::DefaultTeam;
using VTObjects::FavoriteTeam;
using VTObjects::toQString;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOString;

namespace {

constexpr int margin = 4;
constexpr int spacing = 2;
constexpr int widestGroup = 300;    // pixels; a longer name ends with dots
constexpr int textPadding = 6;      // the style sheet leaves none
constexpr int smallestHeight = 150; // pixels that a scrolled chooser keeps at the screen's bottom

// The backgrounds are light in every theme, so the text on them is dark in every theme.
void setDarkText(QWidget *widget)
{
    QPalette dark = widget->palette();
    dark.setColor(QPalette::WindowText, Qt::black);
    dark.setColor(QPalette::ButtonText, Qt::black);
    widget->setPalette(dark);
}

/// A button that shows its text as it is: an ampersand in a group's name marks no key.
class GroupNameButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

    QSize sizeHint() const override
    {
        const QSize hint = QPushButton::sizeHint();
        // The base class does not count the ampersands.
        const int missing =
            text().count(QLatin1Char('&')) * fontMetrics().horizontalAdvance(QLatin1Char('&'));
        return QSize(std::min(hint.width() + missing + textPadding, widestGroup), hint.height());
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        option.text = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        option.text.replace(QLatin1Char('&'), QLatin1String("&&"));
        if (hasFocus()) // the keyboard lights a group up as the pointer does
            option.state |= QStyle::State_MouseOver;
        painter.drawControl(QStyle::CE_PushButton, option);
    }
};

} // namespace

VTColorSchemeGroupMenu::VTColorSchemeGroupMenu(QWidget *parent)
    : QMenu(parent)
    , groupButton(qobject_cast<VTColorSchemeGroupButton *>(parent))
{
    installPickerAccessibility();
    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(spacing);

    auto *title = new QLabel(tr("Select groups:"), this);
    title->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QFont bold = title->font();
    bold.setWeight(QFont::Bold);
    title->setFont(bold);
    layout->addWidget(title);

    const VOColorSchemeManager *store = VOColorSchemeManager::instance();
    if (!store->favoriteTeam.groups.empty()) {
        addHeader(layout, tr("Favorite"));
        for (const VOColorSchemeGroup &group : store->favoriteTeam.groups)
            addGroup(layout, toQString(group.name), FavoriteTeam, QVariant());
    }
    addHeader(layout, tr("Default"));
    for (const char *key : builtInGroups) {
        const int index = store->defaultTeam.index(key);
        if (index < 0)
            continue;
        const VOColorSchemeGroup &group =
            store->defaultTeam.groups[static_cast<std::size_t>(index)];
        addGroup(layout, defaultGroupCaption(key), DefaultTeam, toQString(group.name));
    }
    for (const VOString &name : store->hostGroups()) {
        if (store->defaultTeam.contains(name))
            addGroup(layout, defaultGroupCaption(name), DefaultTeam, toQString(name));
    }
    if (!store->customTeam.groups.empty()) {
        addHeader(layout, tr("Custom"));
        for (const VOColorSchemeGroup &group : store->customTeam.groups)
            addGroup(layout, toQString(group.name), CustomTeam, QVariant());
    }
    setLayout(layout);
}

VTColorSchemeGroupMenu::~VTColorSchemeGroupMenu() = default;

void VTColorSchemeGroupMenu::addHeader(QVBoxLayout *layout, const QString &text)
{
    auto *header = new QLabel(text, this);
    header->setAlignment(Qt::AlignCenter);
    header->setStyleSheet(
        QStringLiteral("QLabel{background-color:rgba(255,152,0,255);min-height:20;border-radius: "
                       "1px;  border: 0px groove gray;border-style: outset;}"));
    setDarkText(header);
    layout->addWidget(header);
}

void VTColorSchemeGroupMenu::addGroup(QVBoxLayout *layout, const QString &text, int kind,
                                      const QVariant &name)
{
    auto *button = new GroupNameButton(text, this);
    button->setStyleSheet(
        QStringLiteral("QPushButton{background-color:rgba(240,240,240,255);border-radius: 3px; "
                       "min-height:20;text-align: left; border: 0px groove gray;border-style: "
                       "outset;}QPushButton:hover{background-color:rgba(51,153,255,255);} "));
    setDarkText(button);
    button->setCursor(Qt::PointingHandCursor);
    button->setProperty("parent", kind);
    if (name.isValid())
        button->setProperty("name", name);
    connect(button, &QPushButton::clicked, this, &VTColorSchemeGroupMenu::onButtonClicked);
    layout->addWidget(button);
}

void VTColorSchemeGroupMenu::onButtonClicked()
{
    auto *const button = qobject_cast<QPushButton *>(sender());
    if (!button)
        return;
    close();
    if (!groupButton)
        return;
    groupButton->setText(button->text());
    groupButton->setProperty("parent", button->property("parent"));
    groupButton->setProperty("name", button->property("name"));
    Q_EMIT groupButton->textChanged(button->text());
}

void VTColorSchemeGroupMenu::showEvent(QShowEvent * /*event*/)
{
    if (!groupButton)
        return;
    const QWidget *const bar = groupButton->parentWidget();
    if (!bar)
        return;
    const QRect place = groupButton->geometry();
    const QPoint anchor = bar->mapToGlobal(QPoint(place.left(), place.bottom()));
    const QScreen *screen = QGuiApplication::screenAt(anchor);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const int room = screen->availableGeometry().bottom() - anchor.y() + 1;
    if (height() > room)
        scrollWithin(std::max(room, smallestHeight));
    move(anchor - QPoint(width() - 1 + 3, 0));
}

// Gives the groups a scroll bar. Only once the place is known: elsewhere they may all fit.
void VTColorSchemeGroupMenu::scrollWithin(int height)
{
    if (scrollArea || height >= this->height())
        return;
    scrollArea = new QScrollArea(this);
    scrollArea->setFrameShape(QFrame::NoFrame);
    scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrollArea->setFocusPolicy(Qt::NoFocus);
    scrollArea->setWidgetResizable(true);
    auto *groups = new QWidget;
    groups->setLayout(layout()); // takes the labels and buttons along
    scrollArea->setWidget(groups);
    groups->setAutoFillBackground(false); // the menu's own background shines through
    scrollArea->viewport()->setAutoFillBackground(false);
    scrollArea->setMinimumWidth(groups->sizeHint().width() +
                                scrollArea->verticalScrollBar()->sizeHint().width());
    auto *frame = new QVBoxLayout;
    frame->setContentsMargins(1, 1, 1, 1);
    frame->addWidget(scrollArea);
    setLayout(frame);
    scrollArea->show(); // the chooser's other children are shown already
    setFixedSize(frame->sizeHint().width(), height);
    frame->activate();
}

void VTColorSchemeGroupMenu::mousePressEvent(QMouseEvent *event)
{
    // A press beside the buttons is a miss and closes nothing.
    if (rect().contains(event->pos()))
        event->accept();
    else
        QMenu::mousePressEvent(event);
}

void VTColorSchemeGroupMenu::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Down:
    case Qt::Key_Tab:
        focusNextPrevChild(true);
        break;
    case Qt::Key_Up:
    case Qt::Key_Backtab:
        focusNextPrevChild(false);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (auto *button = qobject_cast<QPushButton *>(focusWidget()))
            button->click();
        break;
    default:
        QMenu::keyPressEvent(event);
    }
}

// The base class would step through its actions, of which there are none.
bool VTColorSchemeGroupMenu::focusNextPrevChild(bool next)
{
    const QList<QPushButton *> buttons = findChildren<QPushButton *>();
    if (buttons.isEmpty())
        return false;
    const int count = buttons.size();
    const int current = buttons.indexOf(qobject_cast<QPushButton *>(focusWidget()));
    int target = next ? 0 : count - 1;
    if (current >= 0)
        target = (current + (next ? 1 : count - 1)) % count;
    buttons[target]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    if (scrollArea)
        scrollArea->ensureWidgetVisible(buttons[target], 0, spacing);
    return true;
}
