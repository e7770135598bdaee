#include "apps/mapviewer/window/NoticeBar.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace mapviewer {

NoticeBar::NoticeBar(const QString &text, QWidget *parent)
    : CardFrame(parent)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(10, 6, 4, 6);
    auto *sign = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size, size));
    row->addWidget(sign, 0, Qt::AlignTop);
    auto *column = new QVBoxLayout;
    label = new QLabel(text, this);
    label->setObjectName(QStringLiteral("text"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // Names of files are there to be copied.
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    column->addWidget(label);
    buttons = new QHBoxLayout;
    buttons->addStretch();
    column->addLayout(buttons);
    row->addLayout(column, 1);
    close = new QToolButton(this);
    close->setObjectName(QStringLiteral("closeNotice"));
    close->setText(QString(QChar(0x00d7)));
    close->setAutoRaise(true);
    close->setAccessibleName(tr("Close this message"));
    setCloseHint(tr("Close this message"));
    connect(close, &QToolButton::clicked, this, [this] {
        hide();
        Q_EMIT closed();
        deleteLater();
    });
    row->addWidget(close, 0, Qt::AlignTop);
}

QString NoticeBar::text() const
{
    return label->text();
}

void NoticeBar::setText(const QString &text)
{
    label->setText(text);
}

QPushButton *NoticeBar::addButton(const QString &caption, const QString &name)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(name);
    buttons->insertWidget(buttons->count() - 1, button);
    return button;
}

void NoticeBar::setCloseHint(const QString &hint)
{
    close->setToolTip(hint);
}

} // namespace mapviewer
