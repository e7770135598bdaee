#pragma once

#include "vomap/files/fileSystem_p.h"
#include "vomap/files/schemeText_p.h"

#include <QString>

namespace VTObjects {

/// Sentences for the user, translated in the context VOColorSchemeManager.

/// Why a file was not read; empty if it was.
QString readingProblem(ReadState state);
/// Why a text is no scheme; empty if it is one.
QString textProblem(const SchemeFault &fault);
/// Why nothing could be written to this path, by what is there now. Never empty.
QString writingProblem(const QString &path);
/// Why this scheme cannot be written at all.
QString schemeProblem(const VOColorScheme &scheme);
QString memoryProblem();

} // namespace VTObjects
