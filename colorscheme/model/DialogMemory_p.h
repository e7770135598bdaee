#pragma once

#include <QObject>
#include <QPointer>
#include <QSize>
#include <QString>
#include <QVector>

class QDialog;
class QHeaderView;
class QSettings;

namespace vtcontrolcolorscheme {

/// The host's settings for that; null if it did not ask for it.
QSettings *layoutSettings();

/// Lets one dialog open as its user left it, where the host asked for that. It belongs to the
/// dialog.
///
/// What is kept is the difference to the size that the dialog has by itself, which can change with
/// what it shows.
class DialogMemory : public QObject
{
    Q_OBJECT
public:
    /// Takes the size of the dialog as the one that it has by itself, then gives it the user's.
    /// `key` tells it from others.
    DialogMemory(QDialog *dialog, const QString &key);

    /// A column that the user can drag; it gets the user's width.
    void addColumn(QHeaderView *header, int column, const QString &key);
    /// The dialog itself has just taken on another size, and this is the one now.
    void takeDefaultSize();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    struct Column
    {
        QPointer<QHeaderView> header;
        int section;
        QString key;
        int openedWith;
    };

    QString sizePath() const;
    QString pathOf(const QString &key) const;
    void save() const;

    QDialog *dialog;
    QString name;
    QSize defaultSize;
    QSize openedWith; // by which it is known whether the user has resized it
    QVector<Column> columns;
};

} // namespace vtcontrolcolorscheme
