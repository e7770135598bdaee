#include "vomap/VOColorSchemeId.h"

#include "vobase/utf8_p.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QStringList>

#include <algorithm>

namespace VTObjects {

namespace {

constexpr char hexDigits[] = "0123456789ABCDEF";
constexpr int mostDigits = 8; // of the value of a wide character

bool isPlain(char character)
{
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
           (character >= '0' && character <= '9') || character == '-' || character == '.' ||
           character == '_' || character == '~';
}

QString encoded(const VOString &name)
{
    const std::wstring &wide = name.text();
    QString text;
    for (std::size_t at = 0; at < wide.size();) {
        const char32_t codePoint = takeCodePoint(wide, at);
        if (!isScalarValue(codePoint)) {
            text += QStringLiteral("%{") + QString::number(uint(codePoint), 16).toUpper() +
                    QLatin1Char('}');
            continue;
        }
        std::string utf8;
        appendUtf8(utf8, codePoint);
        for (const char byte : utf8) {
            if (isPlain(byte)) {
                text += QLatin1Char(byte);
            } else {
                const auto value = static_cast<unsigned char>(byte);
                text += QLatin1Char('%');
                text += QLatin1Char(hexDigits[value >> 4]);
                text += QLatin1Char(hexDigits[value & 15]);
            }
        }
    }
    return text;
}

/// Takes a name apart that encoded() has made, or somebody by hand.
class Decoder
{
public:
    explicit Decoder(const QString &text)
        : text(text)
    {
    }

    bool decode(VOString &name)
    {
        while (at < text.size()) {
            const bool well = text[at] != QLatin1Char('%') ? takePlain()
                              : at + 1 < text.size() && text[at + 1] == QLatin1Char('{')
                                  ? takeValue()
                                  : takeByte();
            if (!well)
                return false;
        }
        if (!takeUtf8())
            return false;
        name = wide;
        return true;
    }

private:
    // Up to the next "%", so that the two halves of a pair stay together.
    bool takePlain()
    {
        const int end = text.indexOf(QLatin1Char('%'), at);
        const QString plain = text.mid(at, end < 0 ? -1 : end - at);
        at += plain.size();
        if (!takeUtf8())
            return false;
        wide += plain.toStdWString();
        return true;
    }
    bool takeByte()
    {
        unsigned int value = 0;
        if (!takeHex(at + 1, 2, value))
            return false;
        utf8 += static_cast<char>(value);
        at += 3;
        return true;
    }
    bool takeValue()
    {
        const int end = text.indexOf(QLatin1Char('}'), at);
        const int digits = end - at - 2;
        unsigned int value = 0;
        if (end < 0 || digits < 1 || digits > mostDigits || !takeHex(at + 2, digits, value) ||
            !takeUtf8() || (sizeof(wchar_t) == 2 && value > 0xFFFF))
            return false;
        wide += static_cast<wchar_t>(value);
        at = end + 1;
        return true;
    }
    // The bytes since the last character that was none of UTF-8.
    bool takeUtf8()
    {
        std::string_view rest = utf8;
        char32_t codePoint = 0;
        while (takeCodePoint(rest, codePoint))
            appendWide(wide, codePoint);
        if (!rest.empty())
            return false;
        utf8.clear();
        return true;
    }
    bool takeHex(int from, int digits, unsigned int &value) const
    {
        const QString number = text.mid(from, digits);
        const bool isHex =
            number.size() == digits && std::all_of(number.begin(), number.end(), [](QChar digit) {
                const char latin = digit.toUpper().toLatin1();
                return (latin >= '0' && latin <= '9') || (latin >= 'A' && latin <= 'F');
            });
        bool well = false;
        value = number.toUInt(&well, 16);
        return isHex && well;
    }

    const QString &text;
    int at = 0;
    std::string utf8;
    std::wstring wide;
};

} // namespace

bool VOColorSchemeId::isNull() const
{
    return std::none_of(allTeams.begin(), allTeams.end(),
                        [this](VOTeamKind kind) { return team == toVOString(teamKey(kind)); });
}

QString VOColorSchemeId::toText() const
{
    if (isNull())
        return QString();
    return toQString(team) + QLatin1Char('/') + encoded(group) + QLatin1Char('/') + encoded(scheme);
}

VOColorSchemeId VOColorSchemeId::fromText(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('/'));
    VOColorSchemeId id;
    if (parts.size() != 3 || !Decoder(parts[0]).decode(id.team) ||
        !Decoder(parts[1]).decode(id.group) || !Decoder(parts[2]).decode(id.scheme) || id.isNull())
        return VOColorSchemeId();
    return id;
}

uint qHash(const VOColorSchemeId &id, uint seed)
{
    for (const VOString *name : {&id.team, &id.group, &id.scheme}) {
        const std::wstring &text = name->text();
        seed = qHashRange(text.begin(), text.end(), seed + 1);
    }
    return seed;
}

} // namespace VTObjects
