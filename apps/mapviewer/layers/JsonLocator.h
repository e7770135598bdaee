#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace mapviewer {

/// One step from a JSON value to a value inside it: by key when index is -1, else by index.
struct JsonStep
{
    QString key;
    int index = -1;
};

using JsonPath = QVector<JsonStep>;

/// Finds the line on which a value of a JSON text begins. QJsonDocument forgets where its values
/// stood; a message about a wrong one should name the line all the same.
class JsonLocator
{
public:
    /// `text` is valid JSON, that is QJsonDocument has read it, and outlives this object.
    explicit JsonLocator(const QByteArray &text);

    /// Counted from 1. A step that leads nowhere is left out with all after it, so that the line is
    /// that of the innermost value which exists.
    int lineOf(const JsonPath &path);

    /// The line of a byte offset, as QJsonParseError gives it.
    static int lineOfOffset(const QByteArray &text, int offset);

private:
    void skipBlanks();
    void skipValue();
    QString readString();
    bool enterMember(const QString &key);
    bool enterElement(int index);

    const QByteArray &text;
    int position = 0;
};

} // namespace mapviewer
