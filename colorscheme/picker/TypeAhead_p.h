#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QStringList>

namespace vtcontrolcolorscheme {

/// The letters that someone types to find one of several names, in any letter case. Names that
/// begin with them come first, then those that hold them anywhere; among either, the search goes on
/// from the current name and around the end.
///
/// The letters stay until they are taken back or cleared. The same letter again and again steps
/// through the names where none holds it so many times in a row.
class TypeAhead
{
public:
    bool isEmpty() const { return typed.isEmpty(); }
    QString text() const { return typed; }
    /// False if no name holds the letters.
    bool hasFound() const { return found; }
    /// True shortly after a letter: a blank is part of the name then.
    bool goesOn() const;
    void clear();
    /// One letter more. `current` is the position that the search begins behind, -1 for none. The
    /// position of the name found, -1 for none.
    int append(const QString &letter, const QStringList &names, int current);
    /// One letter less. The position of the name found; -1 for none, or if no letter is left.
    int removeLast(const QStringList &names);

private:
    int find(const QStringList &names, const QString &letters, int first);

    QString typed;
    int from = 0; // where the search begins
    bool found = false;
    QElapsedTimer sinceLetter;
};

} // namespace vtcontrolcolorscheme
