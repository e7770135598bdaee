#pragma once

#include "vobase/VOString.h"

#include <QString>

namespace VTObjects {

/// The one way from the toolkit's strings to those of the records, and the one way back: through
/// std::wstring.
inline VOString toVOString(const QString &text)
{
    return VOString(text.toStdWString());
}

inline QString toQString(const VOString &text)
{
    return QString::fromStdWString(text);
}

} // namespace VTObjects
