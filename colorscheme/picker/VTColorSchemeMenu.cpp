#include "colorscheme/picker/VTColorSchemeMenu.h"

#include "colorscheme/accessibility/describeColorRamp_p.h"
#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "colorscheme/model/newScheme_p.h"
#include "colorscheme/picker/EntryList_p.h"
#include "colorscheme/picker/TypeAhead_p.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "colorscheme/picker/VTSchemeMenuActionWidget.h"
#include "colorscheme/picker/pickerAccessibility_p.h"
#include "colorscheme/picker/popupPlace_p.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QApplication>
#include <QCursor>
#include <QDesktopWidget>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWidgetAction>

#include <algorithm>

using vtcontrolcolorscheme::availableArea;
using vtcontrolcolorscheme::describeColorRamp;
using vtcontrolcolorscheme::EntryList;
using vtcontrolcolorscheme::EntryListStyle;
using vtcontrolcolorscheme::installPickerAccessibility;
using vtcontrolcolorscheme::newScheme;
using vtcontrolcolorscheme::placeWithin;
using vtcontrolcolorscheme::TypeAhead;
using VTObjects::CustomTeam;
using VTObjects::DefaultTeam;
using VTObjects::isTeamKind;
using VTObjects::teamKey;
using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeId;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOColorSchemeTeam;
using VTObjects::VOString;
using VTObjects::VOTeamKind;

namespace {

const QSize smallest(160, 350);
constexpr double shareOfPicker = 0.8;
constexpr int stripHeight = 20;
// A strip is this much narrower than the drop-down. Frame, margins and scroll bar have to do with
// it, or they would cut the strips.
constexpr int besideStrip = 20;
constexpr int widestMargin = 3;
constexpr int spacing = 2;

/// Leaving an entry turns its name white, in every theme. So all that the entries lie on is white.
class WhiteScrollArea : public QScrollArea
{
public:
    using QScrollArea::QScrollArea;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter(viewport()).fillRect(event->rect(), Qt::white);
    }
};

} // namespace

VTColorSchemeMenu::VTColorSchemeMenu(const QString &caption, const VOColorSchemeGroup &group,
                                     QWidget *parent)
    : QMenu(parent)
    , comboBox(qobject_cast<VTColorSchemeComboBox *>(parent))
    , groupButton(new VTColorSchemeGroupButton(this))
    , customButton(new QPushButton(tr("User define"), this))
    , scrollArea(new WhiteScrollArea(this))
    , listStyle(std::make_unique<EntryListStyle>(besideStrip))
    , search(std::make_unique<TypeAhead>())
{
    installPickerAccessibility();
    setMouseTracking(true);
    setMinimumSize(smallest);
    if (comboBox && shareOfPicker * comboBox->width() > width())
        setMinimumSize(static_cast<int>(shareOfPicker * comboBox->width()), height());

    groupButton->setText(caption);
    scrollArea->setMouseTracking(true);
    scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrollArea->setFrameShape(QFrame::NoFrame);
    scrollArea->setAlignment(Qt::AlignHCenter);
    scrollArea->setFocusPolicy(Qt::NoFocus); // keys are for the drop-down itself
    QScrollBar *const bar = scrollArea->verticalScrollBar();
    bar->setStyle(listStyle.get());
    connect(bar, &QScrollBar::valueChanged, this, &VTColorSchemeMenu::followPointer);

    auto *layout = new QVBoxLayout;
    const int margin = std::min((besideStrip - bar->sizeHint().width()) / 2, widestMargin);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(spacing);
    layout->addWidget(groupButton);
    layout->addWidget(scrollArea);
    layout->addWidget(customButton);
    if (comboBox && !comboBox->isUserDefineVisible())
        customButton->hide();
    connect(customButton, &QPushButton::clicked, this, &VTColorSchemeMenu::onCustomButtonClicked);
    connect(groupButton, &VTColorSchemeGroupButton::textChanged, this,
            &VTColorSchemeMenu::onGroupButtonTextChanged);
    setLayout(layout);
    fill(group);
}

VTColorSchemeMenu::~VTColorSchemeMenu()
{
    clearList();
    delete scrollArea; // its bar uses the style, which goes before the children
}

void VTColorSchemeMenu::letGoOfThePicker()
{
    comboBox = nullptr;
    close();
    setParent(nullptr, windowFlags());
}

void VTColorSchemeMenu::fill(const VOColorSchemeGroup &record)
{
    // Whatever the new list brings below the pointer, nobody points at it.
    const QScopedValueRollback<bool> guard(adjusting, true);
    restingPointer = QCursor::pos();
    group = record;
    clearList();

    auto *list = new EntryList(
        [this](const QAction *action, const std::optional<QPoint> &pointer) {
            pointTo(action->data().toInt(), pointer);
        },
        [this](const QAction *action) { leave(action ? action->data().toInt() : -1); },
        scrollArea->viewport());
    list->setWindowFlags(Qt::Widget); // at home already: moving there, all entries would restyle
    list->wear(listStyle.get());
    list->setAttribute(Qt::WA_MouseTracking);
    list->setAttribute(Qt::WA_TranslucentBackground);
    list->setFocusPolicy(Qt::NoFocus);
    list->setAccessibleName(tr("Color schemes"));

    const QSize stripSize(width() - besideStrip, stripHeight);
    int index = 0;
    for (const VOColorScheme &scheme : group.schemes) {
        const QString name = toQString(scheme.name);
        // Without a parent: the list takes it over with the action, and thousands of them open at
        // once.
        auto *entry = new VTSchemeMenuActionWidget(nullptr);
        entry->setFixedWidth(stripSize.width()); // a long name makes no wider list
        entry->showScheme(name, colorRampPreviewPixmap(scheme.colorRamp, stripSize));
        entry->setAccessibleDescription(describeColorRamp(scheme.colorRamp));
        auto *action = new QWidgetAction(list);
        action->setText(QString(name).replace(QLatin1Char('&'), QLatin1String("&&")));
        action->setDefaultWidget(entry);
        action->setData(index++);
        connect(action, &QAction::triggered, this, &VTColorSchemeMenu::onActionClicked);
        list->addAction(action);
    }
    if (list->isEmpty()) {
        delete list;
        return;
    }
    scrollArea->setWidget(list);
    if (VTSchemeMenuActionWidget *const entry = entryOf(pickedEntry()))
        entry->setPicked(true);
}

// Actions go first, and while the list is hidden: it would look for each in turn, and lay out the
// rest anew. Nor is the list taken out of the area before, which would restyle every entry.
void VTColorSchemeMenu::clearList()
{
    current = -1;
    latest = -1;
    pointed = false;
    stopTyping();
    QWidget *const list = scrollArea->widget();
    if (!list)
        return;
    list->hide();
    qDeleteAll(list->actions());
    delete list;
}

void VTColorSchemeMenu::showEvent(QShowEvent * /*event*/)
{
    if (!comboBox)
        return;
    // A button that is hidden was given no size.
    groupButton->setMinimumSize(customButton->isHidden()
                                    ? QSize(scrollArea->width(), customButton->sizeHint().height())
                                    : customButton->size());
    if (const QWidget *const host = comboBox->parentWidget())
        placeAt(host->mapToGlobal(comboBox->geometry().bottomLeft()));
    showPicked();
}

void VTColorSchemeMenu::placeAt(const QPoint &corner)
{
    const QRect place = placeWithin(QRect(corner, size()), availableArea(comboBox));
    if (place.size() != size()) { // no room for the smallest size, either
        const bool narrower = place.width() < width();
        setMinimumSize(minimumSize().boundedTo(place.size()));
        resize(place.size());
        if (narrower) {
            groupButton->setMinimumWidth(0);
            fill(group); // with strips that are as much narrower
        }
    }
    move(place.topLeft());
}

// The entry that the picker shows, -1 for none. Where several bear the name, it is the one whose
// record is the same. A picker that shows no scheme of the store may still show an equal one.
int VTColorSchemeMenu::pickedEntry() const
{
    if (!comboBox)
        return -1;
    const VOColorScheme &picked = comboBox->currentScheme();
    const VOColorSchemeId id = comboBox->currentSchemeId();
    if (id.isNull() && !picked.colorRamp)
        return -1; // it shows nothing
    const bool isListed =
        toQString(id.team) == comboBox->team() && id.group == group.name && !id.isNull();
    if (!isListed && !id.isNull())
        return -1;
    int first = -1;
    int index = 0;
    for (const VOColorScheme &scheme : group.schemes) {
        if (scheme.name == picked.name) {
            if (VOColorSchemeManager::areEqual(scheme, picked))
                return index;
            if (first < 0 && isListed)
                first = index;
        }
        ++index;
    }
    return first;
}

// In the middle of what is in sight. The keys go on from there.
void VTColorSchemeMenu::showPicked()
{
    restingPointer = QCursor::pos();
    layout()->activate();
    latest = pickedEntry();
    const QWidget *const entry = entryOf(latest);
    if (!entry)
        return;
    const QScopedValueRollback<bool> guard(adjusting, true);
    const int above = (scrollArea->viewport()->height() - entry->height()) / 2;
    scrollArea->verticalScrollBar()->setValue(entry->y() - above);
    if (openedByKey)
        moveTo(latest);
}

void VTColorSchemeMenu::onActionClicked()
{
    const auto *const action = qobject_cast<QAction *>(sender());
    const int index = action ? action->data().toInt() : -1;
    if (index < 0 || static_cast<std::size_t>(index) >= group.schemes.size())
        return;
    VTColorSchemeComboBox *const picker = comboBox;
    if (picker)
        picker->takeScheme(group, index);
    close();
    if (picker)
        picker->tellChoice();
}

void VTColorSchemeMenu::onGroupButtonTextChanged(const QString &text)
{
    const int number = groupButton->property("parent").toInt();
    if (!isTeamKind(number))
        return;
    const auto kind = static_cast<VOTeamKind>(number);
    // The text of a built-in group is a caption.
    const QString name = kind == DefaultTeam ? groupButton->property("name").toString() : text;
    const VOColorSchemeTeam &team = VOColorSchemeManager::instance()->team(kind);
    const int index = team.index(toVOString(name));
    if (comboBox)
        comboBox->listGroup(kind, index); // deliberate: even if there is no such group any more
    if (index >= 0)
        fill(team.groups[static_cast<std::size_t>(index)]);
}

void VTColorSchemeMenu::onCustomButtonClicked(bool /*checked*/)
{
    // The editor closes the drop-down, and what is told of the outcome may do anything.
    const QPointer<VTColorSchemeComboBox> picker(comboBox);
    VOColorSchemeManager *const store = VOColorSchemeManager::instance();
    std::vector<VOColorSchemeGroup> &groups = store->customTeam.groups;
    const VOString userGroup(L"User define"); // in no language but this: it is a key
    const bool createdNow = !store->customTeam.contains(userGroup);
    if (createdNow) {
        VOColorSchemeGroup empty;
        empty.name = userGroup;
        groups.push_back(empty);
    }
    const int k = store->customTeam.index(userGroup);
    VOColorSchemeGroup &userSchemes = groups[static_cast<std::size_t>(k)];
    userSchemes.schemes.push_back(newScheme(userSchemes));
    const int last = static_cast<int>(userSchemes.schemes.size()) - 1;

    const VOColorSchemeManager::Hold hold; // the editor has a pointer into the store
    VTColorSchemeEditor editor(last, &userSchemes, true, QApplication::desktop());
    if (editor.exec() == QDialog::Accepted) {
        if (picker) {
            picker->setDefaultGroup(teamKey(CustomTeam), k, last);
            if (picker)
                picker->tellChoice();
        }
        store->saveCustomTeam();
        return;
    }
    // By its position, and looked at again: the host's code ran while the editor was open. Where
    // the group existed before, Cancel has removed the scheme and Escape leaves it.
    const auto position = static_cast<std::size_t>(k);
    if (createdNow && position < groups.size() && groups[position].name == userGroup)
        groups.erase(groups.begin() + k);
}

void VTColorSchemeMenu::mousePressEvent(QMouseEvent *event)
{
    if (rect().contains(event->pos())) {
        event->accept(); // a press beside entries and buttons is a miss and closes nothing
        return;
    }
    // A press on the picker closes the drop-down; the press itself must not open it again.
    if (comboBox && comboBox->rect().contains(comboBox->mapFromGlobal(event->globalPos())))
        setAttribute(Qt::WA_NoMouseReplay);
    QMenu::mousePressEvent(event);
}
