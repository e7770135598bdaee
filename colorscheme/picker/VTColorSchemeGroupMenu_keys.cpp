// How the keyboard and the pointer share the one current group of the chooser.
#include "colorscheme/picker/GroupNameButton_p.h"
#include "colorscheme/picker/TypeAhead_p.h"
#include "colorscheme/picker/TypedLabel_p.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "colorscheme/picker/popupPlace_p.h"

#include <QCursor>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>

#include <algorithm>

using vtcontrolcolorscheme::GroupNameButton;
using vtcontrolcolorscheme::pointerRestsOn;
using vtcontrolcolorscheme::TypedLabel;

namespace {

constexpr int besideGroup = 2; // what shows above and below the current group

} // namespace

void VTColorSchemeGroupMenu::keyPressEvent(QKeyEvent *event)
{
    const int last = groups.size() - 1;
    const int from = currentIndex();
    switch (event->key()) {
    case Qt::Key_Down:
    case Qt::Key_Tab:
        focusNextPrevChild(true);
        break;
    case Qt::Key_Up:
    case Qt::Key_Backtab:
        focusNextPrevChild(false);
        break;
    case Qt::Key_Home:
        moveTo(0);
        break;
    case Qt::Key_End:
        moveTo(last);
        break;
    case Qt::Key_PageDown:
        moveTo(std::min(std::max(from, 0) + groupsPerPage(), last));
        break;
    case Qt::Key_PageUp:
        moveTo(from < 0 ? last : std::max(from - groupsPerPage(), 0));
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (current)
            current->click();
        break;
    case Qt::Key_Backspace:
        if (!search->isEmpty()) {
            const int found = search->removeLast(names());
            showTyped();
            if (found >= 0)
                showFound(found);
        }
        break;
    case Qt::Key_Escape:
        if (search->isEmpty())
            QMenu::keyPressEvent(event);
        else
            stopTyping();
        break;
    default: {
        const QString text = event->text();
        const bool printable = !text.isEmpty() && text.at(0).isPrint();
        if (!printable || event->modifiers() & (Qt::AltModifier | Qt::ControlModifier))
            QMenu::keyPressEvent(event);
        else if (text != QLatin1String(" ") || search->goesOn())
            find(text);
        else if (current) // no name is looked for by a blank
            current->click();
    }
    }
}

// The base class would step through its actions, of which there are none.
bool VTColorSchemeGroupMenu::focusNextPrevChild(bool next)
{
    if (groups.isEmpty())
        return false;
    const int count = groups.size();
    const int from = currentIndex();
    int target = next ? 0 : count - 1;
    if (from >= 0)
        target = (from + (next ? 1 : count - 1)) % count;
    moveTo(target);
    return true;
}

int VTColorSchemeGroupMenu::currentIndex() const
{
    return groups.indexOf(current);
}

int VTColorSchemeGroupMenu::groupsPerPage() const
{
    if (groups.isEmpty())
        return 1;
    const int height = scrollArea ? scrollArea->viewport()->height() : this->height();
    return std::max(1, height / (groups.first()->height() + besideGroup));
}

void VTColorSchemeGroupMenu::setCurrent(GroupNameButton *button)
{
    if (button == current)
        return;
    if (current)
        current->setLit(false);
    current = button;
    if (current)
        current->setLit(true);
}

void VTColorSchemeGroupMenu::pointTo(GroupNameButton *button)
{
    if (pointerRestsOn(button, restingPointer))
        return;
    setCurrent(button);
    button->setFocus(Qt::MouseFocusReason); // so that Space means the same
}

void VTColorSchemeGroupMenu::leave(GroupNameButton *button)
{
    if (button != current)
        return;
    setCurrent(nullptr);
    button->clearFocus();
}

void VTColorSchemeGroupMenu::moveTo(int index)
{
    stopTyping();
    showFound(index);
}

void VTColorSchemeGroupMenu::showFound(int index)
{
    if (index < 0 || index >= groups.size())
        return;
    restingPointer = QCursor::pos();
    GroupNameButton *const button = groups[index];
    setCurrent(button);
    button->setFocus(Qt::TabFocusReason);
    if (scrollArea)
        scrollArea->ensureWidgetVisible(button, 0, besideGroup);
}

QStringList VTColorSchemeGroupMenu::names() const
{
    QStringList result;
    for (const GroupNameButton *group : groups)
        result.append(group->text());
    return result;
}

void VTColorSchemeGroupMenu::find(const QString &letter)
{
    if (groups.isEmpty())
        return;
    const int found = search->append(letter, names(), currentIndex());
    showTyped();
    if (found >= 0)
        showFound(found);
}

void VTColorSchemeGroupMenu::stopTyping()
{
    search->clear();
    showTyped();
}

// In the place of the title, where no group is.
void VTColorSchemeGroupMenu::showTyped()
{
    for (GroupNameButton *group : groups)
        group->setTakesBlanks(search->isEmpty());
    title->setVisible(search->isEmpty());
    if (search->isEmpty()) {
        delete typed;
        typed = nullptr;
        return;
    }
    if (!typed)
        typed = new TypedLabel(this);
    typed->setGeometry(title->geometry());
    typed->showLetters(*search);
    typed->show();
}
