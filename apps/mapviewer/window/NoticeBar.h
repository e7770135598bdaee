#pragma once

#include "apps/mapviewer/window/CardFrame.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;

namespace mapviewer {

/// A message that stays in the window until somebody closes it, with buttons for what can be done.
/// Nothing waits for an answer to it.
class NoticeBar : public CardFrame
{
    Q_OBJECT
public:
    /// `text` is plain; its lines are kept.
    NoticeBar(const QString &text, QWidget *parent);

    QString text() const;
    void setText(const QString &text);
    /// Owned by the bar; `name` is the object's.
    QPushButton *addButton(const QString &caption, const QString &name);
    /// The button that closes the bar says what that does.
    void setCloseHint(const QString &hint);

Q_SIGNALS:
    /// The user closed it; it deletes itself.
    void closed();

private:
    QLabel *label = nullptr;
    QToolButton *close = nullptr;
    QHBoxLayout *buttons = nullptr;
};

} // namespace mapviewer
