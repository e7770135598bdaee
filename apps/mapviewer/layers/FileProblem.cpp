#include "apps/mapviewer/layers/FileProblem.h"

#include <QCoreApplication>

namespace mapviewer {

QString FileProblem::message(const QString &fileName) const
{
    if (line <= 0)
        return QCoreApplication::translate("FileProblem", "%1: %2").arg(fileName, text);
    return QCoreApplication::translate("FileProblem", "%1, line %2: %3")
        .arg(fileName)
        .arg(line)
        .arg(text);
}

} // namespace mapviewer
