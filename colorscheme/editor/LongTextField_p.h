#pragma once

#include <QObject>

class QLineEdit;

namespace vtcontrolcolorscheme {

/// Makes a field show the beginning of a text that is too long for it, as long as nobody works in
/// it, and the whole text as a tool-tip. Who begins to type does so where the cursor would be in
/// any other field: behind a text that was just filled in, else where it was left.
class LongTextField : public QObject
{
    Q_OBJECT
public:
    /// The field owns it.
    explicit LongTextField(QLineEdit *field);

    /// Fills the field.
    void setText(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showBeginning();
    void goBackToPlace();
    bool showTip(const QEvent *event) const;

    QLineEdit *field;
    bool untouched = true; // nobody has put the cursor anywhere
    int place = 0;         // where it would be if the beginning was not shown
};

} // namespace vtcontrolcolorscheme
