#include "apps/mapviewer/window/StoreGuard.h"

#include "apps/mapviewer/window/AppSettings.h"
#include "apps/mapviewer/window/NoticeBar.h"
#include "apps/mapviewer/window/showMessage.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOStringConversion.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

#include <algorithm>

namespace mapviewer {

using namespace VTObjects;

namespace {

// Also when it is not there now: then the store says so.
void useFolder(const QString &folder)
{
    if (folder.isEmpty())
        VOColorSchemeManager::setStoreDirectory(VOString());
    else
        VOColorSchemeManager::requireStoreDirectory(toVOString(folder));
}

void rememberFolder(const QString &folder)
{
    if (folder.isEmpty())
        appSettings().remove(storeFolderKey);
    else
        appSettings().setValue(storeFolderKey, folder);
}

} // namespace

StoreGuard::StoreGuard(QWidget *window)
    : QObject(window)
    , window(window)
{
    connect(VOColorSchemeNotifier::instance(), &VOColorSchemeNotifier::saveFailed, this,
            &StoreGuard::onSaveFailed);
    window->installEventFilter(this);
}

QString StoreGuard::chosenFolder()
{
    return appSettings().value(storeFolderKey).toString();
}

void StoreGuard::useChosenFolder()
{
    const QString folder = chosenFolder();
    if (!folder.isEmpty())
        useFolder(folder);
}

bool StoreGuard::open(const QString &folder)
{
    if (!mayLeave())
        return false;
    closeNotices();
    useFolder(folder);
    VOColorSchemeManager::instance()->clearProblems();
    // What it answers stands in its problems, too.
    VOColorSchemeManager::instance()->load();
    rememberFolder(folder);
    Q_EMIT opened();
    showProblems();
    return true;
}

void StoreGuard::showProblems()
{
    QStringList lines;
    QString folder;
    bool missing = false;
    shownProblems = VOColorSchemeManager::instance()->problems().size();
    for (const VOStoreProblem &problem : VOColorSchemeManager::instance()->problems()) {
        // That has a notice of its own.
        if (problem.kind == VOStoreProblem::NotSaved)
            continue;
        lines.append(problem.text);
        if (problem.kind == VOStoreProblem::Damaged && problem.schemes == 0)
            lines.append(tr("Nothing could take its place: the team is empty now."));
        missing = missing || problem.kind == VOStoreProblem::FolderMissing;
        if (problem.kind != VOStoreProblem::FolderMissing && !problem.path.isEmpty()) {
            lines.append(tr("The damaged file: %1").arg(QDir::toNativeSeparators(problem.path)));
            folder = QFileInfo(problem.path).absolutePath();
        }
    }
    if (problemBar) {
        problemBar->hide();
        problemBar->deleteLater();
    }
    if (lines.isEmpty())
        return;
    if (missing)
        lines.append(tr("No other store is used in its place: you see the built-in schemes, and "
                        "nothing can be saved until the folder is back."));
    problemBar = new NoticeBar(lines.join(QLatin1Char('\n')), window);
    problemBar->setObjectName(QStringLiteral("storeProblems"));
    if (!folder.isEmpty()) {
        connect(problemBar->addButton(tr("Open folder"), QStringLiteral("openFolder")),
                &QPushButton::clicked, this,
                [folder] { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); });
    }
    if (missing) {
        connect(problemBar->addButton(tr("Try again"), QStringLiteral("tryAgain")),
                &QPushButton::clicked, this, [this] { open(chosenFolder()); });
        connect(problemBar->addButton(tr("Open another store…"), QStringLiteral("openOther")),
                &QPushButton::clicked, this, &StoreGuard::otherFolderWanted);
        connect(problemBar->addButton(tr("Default store"), QStringLiteral("openDefault")),
                &QPushButton::clicked, this, [this] { open({}); });
    }
    connect(problemBar, &NoticeBar::closed, this, [this] {
        // Not while something is unsaved: that is a problem, too, and stays one.
        if (!hasUnsaved())
            VOColorSchemeManager::instance()->clearProblems();
        shownProblems = VOColorSchemeManager::instance()->problems().size();
    });
    Q_EMIT noticed(problemBar);
}

bool StoreGuard::hasUnsaved()
{
    const std::vector<VOStoreProblem> problems = VOColorSchemeManager::instance()->problems();
    // A later save of anybody's may have succeeded.
    failed = failed && std::any_of(problems.begin(), problems.end(), [](const auto &problem) {
                 return problem.kind == VOStoreProblem::NotSaved;
             });
    return failed;
}

bool StoreGuard::eventFilter(QObject *, QEvent *event)
{
    // Cheap where nobody has saved anything; whoever shows schemes hears of it by the notifier.
    if (event->type() == QEvent::WindowActivate) {
        VOColorSchemeManager::instance()->reloadIfChanged();
        showNewProblems();
    }
    return false;
}

void StoreGuard::showNewProblems()
{
    if (VOColorSchemeManager::instance()->problems().size() > shownProblems)
        showProblems();
}

void StoreGuard::onSaveFailed(const QString &folder, const QString &reason)
{
    failedFolder = folder;
    failedReason = reason;
    failed = true;
    // Whoever asks again shows the reason by itself.
    if (asking || pending)
        return;
    pending = true;
    QMetaObject::invokeMethod(this, &StoreGuard::tellFailedSave, Qt::QueuedConnection);
}

void StoreGuard::tellFailedSave()
{
    QWidget *busy = QApplication::activePopupWidget();
    if (!busy)
        busy = QApplication::activeModalWidget();
    if (busy) {
        // The menu or the dialog in which it happened is still there: after it.
        connect(busy, &QObject::destroyed, this, &StoreGuard::tellFailedSave, Qt::QueuedConnection);
        return;
    }
    if (!pending)
        return;
    pending = false;
    if (hasUnsaved())
        askAboutUnsaved(false);
    showProblems();
    showUnsaved();
}

bool StoreGuard::mayLeave()
{
    pending = false;
    if (!hasUnsaved())
        return true;
    const Answer answer = askAboutUnsaved(true);
    showUnsaved();
    return answer != Answer::Later;
}

StoreGuard::Answer StoreGuard::askAboutUnsaved(bool leaving)
{
    asking = true;
    Answer answer = Answer::Later;
    while (hasUnsaved()) {
        QMessageBox box(QMessageBox::Warning, tr("Schemes not saved"),
                        tr("Your color schemes could not be saved in %1.")
                            .arg(QDir::toNativeSeparators(failedFolder)),
                        QMessageBox::NoButton, window);
        box.setTextFormat(Qt::PlainText);
        box.setInformativeText(failedReason + QLatin1Char('\n') +
                               (leaving ? tr("What is not saved will be lost.")
                                        : tr("Your changes are kept until this program ends.")));
        QPushButton *again = box.addButton(tr("Try again"), QMessageBox::AcceptRole);
        again->setObjectName(QStringLiteral("tryAgain"));
        QPushButton *elsewhere = box.addButton(tr("Save elsewhere…"), QMessageBox::ActionRole);
        elsewhere->setObjectName(QStringLiteral("saveElsewhere"));
        QPushButton *discard = nullptr;
        if (leaving) {
            discard = box.addButton(tr("Discard changes"), QMessageBox::DestructiveRole);
            discard->setObjectName(QStringLiteral("discard"));
        }
        QPushButton *later =
            box.addButton(leaving ? tr("Cancel") : tr("Later"), QMessageBox::RejectRole);
        later->setObjectName(QStringLiteral("later"));
        box.setDefaultButton(again);
        box.setEscapeButton(later);
        box.exec();
        const QAbstractButton *clicked = box.clickedButton();
        if (clicked == again) {
            VOColorSchemeManager::instance()->save();
        } else if (clicked == elsewhere) {
            saveElsewhere();
        } else if (discard && clicked == discard) {
            failed = false;
            answer = Answer::Discarded;
            break;
        } else {
            break;
        }
        if (!hasUnsaved())
            answer = Answer::Saved;
    }
    asking = false;
    return answer;
}

bool StoreGuard::saveElsewhere()
{
    const QString before = failedFolder;
    const QString folder = QFileDialog::getExistingDirectory(
        window, tr("Save the schemes in another folder"), QDir::homePath(),
        QFileDialog::ShowDirsOnly | QFileDialog::DontUseNativeDialog);
    if (folder.isEmpty())
        return false;
    useFolder(folder);
    // Schemes that are there already are kept: both are merged.
    if (!VOColorSchemeManager::instance()->save()) {
        showMessage(window, QMessageBox::Warning, tr("Schemes not saved"),
                    tr("%1 cannot take the schemes: %2")
                        .arg(QDir::toNativeSeparators(folder), failedReason));
        failedFolder = before;
        if (chosenFolder().isEmpty())
            VOColorSchemeManager::setStoreDirectory(toVOString(before));
        else
            useFolder(chosenFolder());
        return false;
    }
    rememberFolder(folder);
    VOColorSchemeManager::instance()->load();
    Q_EMIT opened();
    return true;
}

void StoreGuard::showUnsaved()
{
    const bool unsaved = hasUnsaved();
    if (!unsaved && unsavedBar) {
        unsavedBar->hide();
        unsavedBar->deleteLater();
    }
    if (!unsaved || (unsavedBar && unsavedBar->isVisible()))
        return;
    unsavedBar = new NoticeBar(tr("Some of your color schemes are not saved yet."), window);
    unsavedBar->setObjectName(QStringLiteral("unsavedSchemes"));
    connect(unsavedBar->addButton(tr("Save…"), QStringLiteral("save")), &QPushButton::clicked, this,
            [this] {
                VOColorSchemeManager::instance()->save();
                // A failure asks by itself.
                showUnsaved();
            });
    Q_EMIT noticed(unsavedBar);
}

void StoreGuard::closeNotices()
{
    for (NoticeBar *bar : {problemBar.data(), unsavedBar.data()}) {
        if (!bar)
            continue;
        bar->hide();
        bar->deleteLater();
    }
}

} // namespace mapviewer
