#include "namesakes.h"

bool dataModified = true;
QMap<QString, int> defaultGroupCaptions{{QStringLiteral("host"), 7}};

QVector<QColor> defaultColorRamp()
{
    return {Qt::red, Qt::green};
}

QString lastOpenFilePath()
{
    return QStringLiteral("host");
}

QString safeFileName(const QString &name)
{
    return name + lastOpenFilePath();
}

QString describeColorRamp(const QColor &color)
{
    return color.name();
}

int builtInSchemes()
{
    return 3;
}

int swatchColors()
{
    return 4;
}

GeneratedName::GeneratedName(const QString &base)
    : letters(base.size())
{
}

int GeneratedName::count() const
{
    return letters;
}

JsonReader::~JsonReader() = default;

int JsonReader::depth() const
{
    return 1;
}

int SchemeStore::depth() const
{
    return 2;
}
