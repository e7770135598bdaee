#include "vomap/safeFileName.h"

#include "vobase/utf8_p.h"
#include "vomap/VOStringConversion.h"
#include "vomap/files/fileNameRules_p.h"

#include <QHash>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <array>
#include <map>

namespace VTObjects {

namespace {

constexpr int longestName = 255 - 4; // with ".vcs" what file systems allow

bool isForbidden(FileNameRules rules, char32_t codePoint)
{
    if (codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0) || codePoint == U'/' ||
        codePoint == U'\\' || !isScalarValue(codePoint))
        return true;
    constexpr std::u32string_view windows = U"<>:\"|?*";
    return rules == FileNameRules::Windows && windows.find(codePoint) != std::u32string_view::npos;
}

QString withoutForbidden(FileNameRules rules, const std::wstring &name)
{
    std::wstring safe;
    for (std::size_t at = 0; at < name.size();) {
        const char32_t codePoint = takeCodePoint(name, at);
        appendWide(safe, isForbidden(rules, codePoint) ? U'_' : codePoint);
    }
    return QString::fromStdWString(safe);
}

/// Whatever follows a full stop, and blanks before that, make no other thing of a device.
bool isDeviceName(const QString &name)
{
    const QString start = name.section(QLatin1Char('.'), 0, 0).trimmed().toUpper();
    constexpr std::array<const char *, 6> plain = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    if (std::any_of(plain.begin(), plain.end(),
                    [&start](const char *device) { return start == QLatin1String(device); }))
        return true;
    // The raised digits count too.
    const QString digits = QStringLiteral("123456789\u00B9\u00B2\u00B3");
    return start.size() == 4 && digits.contains(start.at(3)) &&
           (start.startsWith(QLatin1String("COM")) || start.startsWith(QLatin1String("LPT")));
}

int lengthOf(FileNameRules rules, const QString &name)
{
    return rules == FileNameRules::Windows ? name.size() : name.toUtf8().size();
}

QString cut(FileNameRules rules, const QString &name, int longest)
{
    // Nothing behind this many can be kept, and names can have millions.
    const QString start = name.left(longest + 1);
    if (start.size() == name.size() && lengthOf(rules, name) <= longest)
        return name;
    const auto fits = [&](int size) { return lengthOf(rules, start.left(size)) <= longest; };
    int kept = 0;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, start);
    // Behind some letters of India the toolkit sees boundaries within a pair.
    for (int end = characters.toNextBoundary(); end > 0 && fits(end);
         end = characters.toNextBoundary()) {
        if (!start.at(end - 1).isHighSurrogate())
            kept = end;
    }
    // A letter can bear more accents than there is room for.
    if (kept == 0) {
        kept = start.size();
        while (kept > 0 && (!fits(kept) || start.at(kept - 1).isHighSurrogate()))
            --kept;
    }
    return start.left(kept);
}

QString safeName(FileNameRules rules, const VOString &name)
{
    QString safe = withoutForbidden(rules, name.text());
    if (safe == QLatin1String(".") || safe == QLatin1String(".."))
        safe.fill(QLatin1Char('_'));
    if (rules == FileNameRules::Windows && isDeviceName(safe))
        safe.prepend(QLatin1Char('_'));
    safe = cut(rules, safe, longestName);
    const bool endIsLost = safe.endsWith(QLatin1Char('.')) || safe.endsWith(QLatin1Char(' '));
    if (rules == FileNameRules::Windows && endIsLost)
        safe[safe.size() - 1] = QLatin1Char('_');
    return safe;
}

/// Equal for names that some disk takes for the same.
QString foldedName(const QString &name)
{
    const QString folded = name.normalized(QString::NormalizationForm_D).toCaseFolded();
    return folded.normalized(QString::NormalizationForm_D);
}

/// Gives each file away once.
class FileNamesTaken
{
public:
    explicit FileNamesTaken(FileNameRules rules)
        : rules(rules)
    {
    }

    /// False if it is taken.
    bool take(const QString &file)
    {
        const QString folded = foldedName(file);
        if (nextNumbers.contains(folded))
            return false;
        nextNumbers.insert(folded, 2);
        return true;
    }

    QString takeNumbered(const QString &file)
    {
        if (take(file))
            return file;
        const QString folded = foldedName(file);
        QString numbered;
        do {
            const QString suffix = QStringLiteral(" (%1)").arg(nextNumbers[folded]++);
            numbered = cut(rules, file, longestName - suffix.size()) + suffix;
        } while (!take(numbered));
        return numbered;
    }

private:
    FileNameRules rules;
    QHash<QString, int> nextNumbers; // of the names taken, folded
};

} // namespace

VOString safeFileNameBy(FileNameRules rules, const VOString &name)
{
    const QString safe = safeName(rules, name);
    // Not through the toolkit's string and back, where nothing was changed.
    return safe.toStdWString() == name.text() ? name : toVOString(safe);
}

std::vector<VOString> safeFileNamesBy(FileNameRules rules, const std::vector<VOString> &names)
{
    FileNamesTaken taken(rules);
    std::map<std::wstring, QString> files; // by the names
    const auto isKept = [rules](const VOString &name) {
        return safeName(rules, name).toStdWString() == name.text();
    };
    for (const VOString &name : names) {
        if (files.count(name.text()) > 0 || !isKept(name))
            continue;
        const QString file = toQString(name);
        if (taken.take(file))
            files.emplace(name.text(), file);
    }
    std::vector<VOString> result;
    result.reserve(names.size());
    for (const VOString &name : names) {
        auto file = files.find(name.text());
        if (file == files.end()) {
            const QString free = taken.takeNumbered(safeName(rules, name));
            file = files.emplace(name.text(), free).first;
        }
        result.push_back(toVOString(file->second));
    }
    return result;
}

VOString safeFileName(const VOString &name)
{
    return safeFileNameBy(ownFileNameRules, name);
}

std::vector<VOString> safeFileNames(const std::vector<VOString> &names)
{
    return safeFileNamesBy(ownFileNameRules, names);
}

} // namespace VTObjects
