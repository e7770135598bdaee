#include "vomap/files/fileProblem_p.h"

#include "vomap/VOColorScheme.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace VTObjects {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("VOColorSchemeManager", text);
}

} // namespace

QString readingProblem(ReadState state)
{
    switch (state) {
    case ReadState::Read:
        return QString();
    case ReadState::Missing:
        return tr("There is no such file.");
    case ReadState::Unreadable:
        return tr("The file cannot be read; perhaps you are not permitted to.");
    case ReadState::NotAFile:
        return tr("It is no file.");
    case ReadState::TooLong:
        return tr("The file is too long for a color scheme.");
    }
    return QString();
}

QString textProblem(const SchemeFault &fault)
{
    switch (fault.kind) {
    case SchemeFault::None:
        return QString();
    case SchemeFault::Empty:
        return tr("The file is empty.");
    case SchemeFault::TooLong:
        return readingProblem(ReadState::TooLong);
    case SchemeFault::Foreign:
        return tr("It is no color scheme file.");
    case SchemeFault::Newer:
        return tr("It was written by a newer release of this program.");
    case SchemeFault::Damaged:
        return tr("The text is damaged in line %1.").arg(fault.line);
    case SchemeFault::Incomplete:
        return tr("The text is not complete: \"%1\" is missing.")
            .arg(QString::fromLatin1(fault.missing.data(), static_cast<int>(fault.missing.size())));
    }
    return QString();
}

QString writingProblem(const QString &path)
{
    constexpr int longestName = 255;
    const QFileInfo file(path);
    const QFileInfo folder(file.path());
    if (file.fileName().isEmpty() || path.contains(QChar(QChar::Null)))
        return tr("This is no name of a file.");
    if (!folder.isDir())
        return tr("The folder does not exist.");
    if (file.isDir())
        return tr("There is a folder of this name.");
    if (file.fileName().toUtf8().size() > longestName)
        return tr("The name of the file is too long.");
    if (file.isSymLink() && !file.exists())
        return tr("There is a link of this name that leads nowhere.");
    if (file.exists() && !file.isFile())
        return tr("There is something of this name that is no file.");
    if (file.exists() && !file.isWritable())
        return tr("There is a file of this name that must not be changed.");
    if (!folder.isWritable())
        return tr("You are not permitted to write into the folder.");
    return tr("The file cannot be written; perhaps the disk is full.");
}

QString schemeProblem(const VOColorScheme &scheme)
{
    return scheme.colorRamp ? tr("The scheme is too large for a file.")
                            : tr("The scheme has no colors.");
}

QString memoryProblem()
{
    return tr("There is not enough memory.");
}

} // namespace VTObjects
