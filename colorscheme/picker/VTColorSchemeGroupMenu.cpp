#include "colorscheme/picker/VTColorSchemeGroupMenu.h"

#include "colorscheme/picker/GroupNameButton_p.h"
#include "colorscheme/picker/TypeAhead_p.h"
#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "colorscheme/picker/darkText_p.h"
#include "colorscheme/picker/defaultGroupCaptions_p.h"
#include "colorscheme/picker/pickerAccessibility_p.h"
#include "colorscheme/picker/popupPlace_p.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QCursor>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

using vtcontrolcolorscheme::availableArea;
using vtcontrolcolorscheme::defaultGroupCaption;
using vtcontrolcolorscheme::drawDarkText;
using vtcontrolcolorscheme::GroupNameButton;
using vtcontrolcolorscheme::installPickerAccessibility;
using vtcontrolcolorscheme::placeWithin;
using vtcontrolcolorscheme::TypeAhead;
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

/// A header on its own ground, whatever colours a host gives to labels.
class HeaderLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        drawFrame(&painter); // the style sheet's ground, too
        drawDarkText(painter, this, contentsRect(), alignment(), text());
    }
};

} // namespace

VTColorSchemeGroupMenu::VTColorSchemeGroupMenu(QWidget *parent)
    : QMenu(parent)
    , groupButton(qobject_cast<VTColorSchemeGroupButton *>(parent))
    , title(new QLabel(tr("Select groups:"), this))
    , search(std::make_unique<TypeAhead>())
{
    installPickerAccessibility();
    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(spacing);

    title->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QFont bold = title->font();
    bold.setWeight(QFont::Bold);
    title->setFont(bold);
    QSizePolicy place = title->sizePolicy();
    place.setRetainSizeWhenHidden(true); // what is typed takes the place for a while
    title->setSizePolicy(place);
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
    auto *header = new HeaderLabel(text, this);
    header->setAlignment(Qt::AlignCenter);
    header->setStyleSheet(
        QStringLiteral("QLabel{background-color:rgba(255,152,0,255);min-height:20;border-radius: "
                       "1px;  border: 0px groove gray;border-style: outset;}"));
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
    button->setCursor(Qt::PointingHandCursor);
    button->setProperty("parent", kind);
    if (name.isValid())
        button->setProperty("name", name);
    button->tell([this](GroupNameButton *one) { pointTo(one); },
                 [this](GroupNameButton *one) { leave(one); },
                 [this](GroupNameButton *one) { setCurrent(one); });
    groups.append(button);
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
    restingPointer = QCursor::pos();
    const QRect place = groupButton->geometry();
    const QPoint anchor = bar->mapToGlobal(QPoint(place.left(), place.bottom()));
    const QRect available = availableArea(groupButton);
    if (height() > available.height())
        scrollWithin(available.height());
    const QPoint corner = anchor - QPoint(width() - 1 + 3, 0);
    move(placeWithin(QRect(corner, size()), available).topLeft());
}

// Gives the groups a scroll bar; the title stays above them. Only once the screen is known: another
// one may have room for all.
void VTColorSchemeGroupMenu::scrollWithin(int height)
{
    if (scrollArea || height >= this->height())
        return;
    scrollArea = new QScrollArea(this);
    scrollArea->setFrameShape(QFrame::NoFrame);
    scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrollArea->setFocusPolicy(Qt::NoFocus);
    scrollArea->setWidgetResizable(true);
    QLayout *const column = layout();
    column->removeWidget(title);
    column->setContentsMargins(margin, 0, margin, margin);
    auto *content = new QWidget;
    content->setLayout(column); // takes the labels and buttons along
    scrollArea->setWidget(content);
    content->setAutoFillBackground(false); // the menu's own background shines through
    scrollArea->viewport()->setAutoFillBackground(false);
    scrollArea->setMinimumWidth(content->sizeHint().width() +
                                scrollArea->verticalScrollBar()->sizeHint().width());
    auto *frame = new QVBoxLayout;
    frame->setContentsMargins(1, 1, 1, 1);
    frame->setSpacing(spacing);
    title->setContentsMargins(margin - 1, margin - 1, 0, 0);
    frame->addWidget(title);
    frame->addWidget(scrollArea, 1);
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
