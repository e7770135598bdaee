#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

class QWidget;

namespace mapviewer {

class NoticeBar;

/// Stands between the scheme store and its user: says what was damaged or is missing, says when a
/// save failed, and sees that what could not be saved is not lost without a question. When the
/// window becomes active it fetches what other programs have saved meanwhile.
class StoreGuard : public QObject
{
    Q_OBJECT
public:
    /// Message boxes lie over `window`, which outlives this object.
    explicit StoreGuard(QWidget *window);

    /// The folder that the user chose for the store; empty for the default place.
    static QString chosenFolder();
    /// What is to be read and saved from now on: the chosen folder, or the default place. Where a
    /// chosen folder is missing, no other is used in its place. Call it before the store is loaded.
    static void useChosenFolder();

    /// Takes all schemes from another folder, or from the default place for an empty name, now and
    /// at the next start. False, with nothing changed, when the user would rather keep what is not
    /// saved. What is wrong with the store is shown by a notice.
    bool open(const QString &folder);
    /// True when nothing waits to be saved, or the user lets it go.
    bool mayLeave();
    /// Shows what the store has to tell, or nothing when that is nothing.
    void showProblems();
    bool hasUnsaved();

Q_SIGNALS:
    /// A notice to show; whoever shows it owns it.
    void noticed(mapviewer::NoticeBar *notice);
    /// Another folder is the store's now; its schemes are loaded.
    void opened();
    /// Another folder is to be chosen by the user.
    void otherFolderWanted();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class Answer { Saved, Later, Discarded };

    void onSaveFailed(const QString &folder, const QString &reason);
    void tellFailedSave();
    Answer askAboutUnsaved(bool leaving);
    bool saveElsewhere();
    void showUnsaved();
    void showNewProblems();
    void closeNotices();

    QWidget *window;
    QString failedFolder;
    QString failedReason;
    bool failed = false;  // a save failed, and none has succeeded since
    bool pending = false; // nobody has told the user yet
    bool asking = false;
    std::size_t shownProblems = 0; // how many the store had when the bar was made
    QPointer<NoticeBar> problemBar;
    QPointer<NoticeBar> unsavedBar;
};

} // namespace mapviewer
