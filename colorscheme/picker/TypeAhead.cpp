#include "colorscheme/picker/TypeAhead_p.h"

#include <QApplication>

#include <algorithm>

namespace vtcontrolcolorscheme {

bool TypeAhead::goesOn() const
{
    return !typed.isEmpty() && sinceLetter.elapsed() < QApplication::keyboardInputInterval();
}

void TypeAhead::clear()
{
    typed.clear();
    found = false;
}

int TypeAhead::append(const QString &letter, const QStringList &names, int current)
{
    const bool soon = goesOn();
    sinceLetter.start();
    if (typed.isEmpty()) {
        typed = letter;
        return find(names, typed, current + 1);
    }
    const QString longer = typed + letter;
    const int place = find(names, longer, from);
    const bool repeated =
        longer.count(letter, Qt::CaseInsensitive) * letter.size() == longer.size();
    // Where the letters lead nowhere, the same one steps on, and after a pause another one begins
    // anew. All others stay to be seen, and to be taken back.
    if (place < 0 && (repeated || !soon)) {
        const int other = find(names, letter, current + 1);
        if (other >= 0) {
            typed = letter;
            from = other;
            return other;
        }
    }
    typed = longer;
    found = place >= 0;
    return place;
}

int TypeAhead::removeLast(const QStringList &names)
{
    typed.chop(typed.size() > 1 && typed.at(typed.size() - 1).isLowSurrogate() ? 2 : 1);
    if (typed.isEmpty()) {
        clear();
        return -1;
    }
    return find(names, typed, from);
}

int TypeAhead::find(const QStringList &names, const QString &letters, int first)
{
    const int count = names.size();
    from = first;
    found = true;
    for (const bool atStart : {true, false}) {
        for (int i = 0; i < count; ++i) {
            const int place = (first + i) % count;
            const int at = names.at(place).indexOf(letters, 0, Qt::CaseInsensitive);
            if (at == 0 || (at > 0 && !atStart))
                return place;
        }
    }
    found = false;
    return -1;
}

} // namespace vtcontrolcolorscheme
