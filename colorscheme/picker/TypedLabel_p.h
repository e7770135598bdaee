#pragma once

#include <QLabel>

namespace vtcontrolcolorscheme {

class TypeAhead;

/// Shows the letters that someone has typed to find a name, struck out if no name holds them. It is
/// as wide as its place and shows the end of what is too long.
class TypedLabel : public QLabel
{
    Q_OBJECT
public:
    explicit TypedLabel(QWidget *parent);

    void showLetters(const TypeAhead &letters);
};

} // namespace vtcontrolcolorscheme
