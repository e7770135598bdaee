#include "apps/mapviewer/layers/JsonLocator.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace mapviewer {

JsonLocator::JsonLocator(const QByteArray &text)
    : text(text)
{
}

int JsonLocator::lineOfOffset(const QByteArray &text, int offset)
{
    const int end = std::clamp(offset, 0, text.size());
    return 1 + int(std::count(text.begin(), text.begin() + end, '\n'));
}

int JsonLocator::lineOf(const JsonPath &path)
{
    position = text.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    skipBlanks();
    for (const JsonStep &step : path) {
        const int parent = position;
        if (step.index < 0 ? enterMember(step.key) : enterElement(step.index))
            continue;
        position = parent;
        break;
    }
    return lineOfOffset(text, position);
}

void JsonLocator::skipBlanks()
{
    while (position < text.size() && QByteArray(" \t\r\n").contains(text[position]))
        ++position;
}

QString JsonLocator::readString()
{
    const int start = position++;
    while (position < text.size() && text[position] != '"')
        position += text[position] == '\\' ? 2 : 1;
    ++position;
    // Left to the toolkit: a key may hold escapes.
    const QByteArray wrapped = '[' + text.mid(start, position - start) + ']';
    return QJsonDocument::fromJson(wrapped).array().at(0).toString();
}

void JsonLocator::skipValue()
{
    int depth = 0;
    do {
        const char c = text[position];
        if (c == '"') {
            readString();
        } else if (c == '{' || c == '[') {
            ++depth;
            ++position;
        } else if (c == '}' || c == ']') {
            --depth;
            ++position;
        } else if (depth > 0) {
            ++position;
        } else {
            while (position < text.size() && !QByteArray(",]} \t\r\n").contains(text[position]))
                ++position;
        }
    } while (depth > 0 && position < text.size());
}

bool JsonLocator::enterMember(const QString &key)
{
    if (position >= text.size() || text[position] != '{')
        return false;
    ++position;
    int found = -1;
    for (skipBlanks(); position < text.size() && text[position] != '}'; skipBlanks()) {
        const QString name = readString();
        skipBlanks();
        ++position; // the colon
        skipBlanks();
        // The last of several members of one name is the one that QJsonDocument keeps.
        if (name == key)
            found = position;
        skipValue();
        skipBlanks();
        if (position < text.size() && text[position] == ',')
            ++position;
    }
    position = found;
    return found >= 0;
}

bool JsonLocator::enterElement(int index)
{
    if (position >= text.size() || text[position] != '[')
        return false;
    ++position;
    for (skipBlanks(); position < text.size() && text[position] != ']'; skipBlanks()) {
        if (index-- == 0)
            return true;
        skipValue();
        skipBlanks();
        if (position < text.size() && text[position] == ',')
            ++position;
    }
    return false;
}

} // namespace mapviewer
