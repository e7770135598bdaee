// The sentences in which the store tells what went wrong.
#include "vomap/VOStringConversion.h"
#include "vomap/store/SchemeStore_p.h"

#include <QCoreApplication>

namespace VTObjects {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("VOStoreProblem", text);
}

QString loadText(VOStoreProblem::Kind kind, VOTeamKind which, int schemes)
{
    switch (kind) {
    case VOStoreProblem::Damaged:
        return which == DefaultTeam
                   ? tr("The file of the team \"%1\" was damaged, and none of it could be read. "
                        "The "
                        "built-in color schemes are there as they were delivered.")
                   : tr("The file of the team \"%1\" was damaged, and none of it could be read.");
    case VOStoreProblem::Restored:
        return tr(
            "The file of the team \"%1\" was damaged or missing. Its last good copy stands in "
            "for it (color schemes: %2); what was changed after that copy is lost.");
    case VOStoreProblem::PartlyLost:
        return tr(
            "The file of the team \"%1\" was damaged. What could be read of it is there (color "
            "schemes: %2); the others are lost.");
    case VOStoreProblem::NewerRelease:
        return tr(
            "The team \"%1\" was saved by a newer release of this program. It is shown as far "
            "as it is understood (color schemes: %2) and cannot be saved here.");
    case VOStoreProblem::Unreadable:
        return schemes > 0
                   ? tr("The file of the team \"%1\" cannot be read. Its last good copy is shown "
                        "instead (color schemes: %2); nothing can be saved until the file can be "
                        "read.")
                   : tr("The file of the team \"%1\" cannot be read; nothing can be saved until it "
                        "can.");
    case VOStoreProblem::NotSaved:
    case VOStoreProblem::FolderMissing:
        break;
    }
    return QString();
}

VOStoreProblem problemOf(VOStoreProblem::Kind kind, VOTeamKind which, const VOColorSchemeTeam &team)
{
    VOStoreProblem problem;
    problem.kind = kind;
    problem.team = toVOString(teamKey(which));
    for (const VOColorSchemeGroup &group : team.groups)
        problem.schemes += static_cast<int>(group.schemes.size());
    return problem;
}

} // namespace

QString reasonOf(StoreFailure failure, const QString &systemSays)
{
    const char *text = nullptr;
    switch (failure) {
    case StoreFailure::NoSuchFolder:
        text = QT_TRANSLATE_NOOP("VOStoreProblem", "No folder can have the name of the store's.");
        break;
    case StoreFailure::FolderMissing:
        text = QT_TRANSLATE_NOOP("VOStoreProblem", "The store's folder is missing.");
        break;
    case StoreFailure::FolderRefused:
        text = QT_TRANSLATE_NOOP("VOStoreProblem", "The store's folder cannot be made.");
        break;
    case StoreFailure::LockTaken:
        text = QT_TRANSLATE_NOOP("VOStoreProblem", "Another program is busy with the store.");
        break;
    case StoreFailure::LockRefused:
        text =
            QT_TRANSLATE_NOOP("VOStoreProblem", "Nothing can be written into the store's folder.");
        break;
    case StoreFailure::Unreadable:
        text = QT_TRANSLATE_NOOP("VOStoreProblem",
                                 "What was saved before cannot be read and must not be replaced.");
        break;
    case StoreFailure::Newer:
        text = QT_TRANSLATE_NOOP("VOStoreProblem",
                                 "A newer release of this program has saved the color schemes.");
        break;
    case StoreFailure::Unwritable:
        text = QT_TRANSLATE_NOOP("VOStoreProblem",
                                 "Among the color schemes is one that no file can hold.");
        break;
    case StoreFailure::WriteRefused:
        text = QT_TRANSLATE_NOOP("VOStoreProblem", "The files of the store cannot be written.");
        break;
    case StoreFailure::OutOfMemory:
        text = QT_TRANSLATE_NOOP("VOStoreProblem", "There is not enough memory.");
        break;
    }
    return systemSays.isEmpty() ? tr(text)
                                : tr(text) + QStringLiteral(" (") + systemSays + QLatin1Char(')');
}

VOStoreProblem loadProblem(VOStoreProblem::Kind kind, VOTeamKind which,
                           const VOColorSchemeTeam &team, const QString &aside)
{
    VOStoreProblem problem = problemOf(kind, which, team);
    problem.path = aside;
    problem.text = loadText(kind, which, problem.schemes)
                       .replace(QLatin1String("%1"), teamKey(which))
                       .replace(QLatin1String("%2"), QString::number(problem.schemes));
    return problem;
}

VOStoreProblem replacedProblem(VOTeamKind which, const VOColorSchemeTeam &team,
                               const QString &aside)
{
    VOStoreProblem problem = problemOf(VOStoreProblem::Damaged, which, team);
    problem.path = aside;
    problem.text =
        (aside.isEmpty() ? tr("The file of the team \"%1\" was damaged while this program was "
                              "running. What is shown here replaces it with the next save.")
                         : tr("The file of the team \"%1\" was damaged while this program was "
                              "running. What is shown here was saved in its place."))
            .arg(teamKey(which));
    return problem;
}

VOStoreProblem notSavedProblem(VOTeamKind which, const VOColorSchemeTeam &team,
                               const QString &reason)
{
    VOStoreProblem problem = problemOf(VOStoreProblem::NotSaved, which, team);
    problem.text =
        tr("The team \"%1\" was not saved.").arg(teamKey(which)) + QLatin1Char(' ') + reason;
    return problem;
}

VOStoreProblem folderMissingProblem(const QString &folder)
{
    VOStoreProblem problem;
    problem.kind = VOStoreProblem::FolderMissing;
    problem.path = folder;
    problem.text = tr("The folder of the color schemes is missing: %1").arg(folder);
    return problem;
}

} // namespace VTObjects
