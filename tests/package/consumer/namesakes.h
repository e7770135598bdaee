#pragma once

#include <QColor>
#include <QMap>
#include <QString>
#include <QVector>

// What a host may have called its own, long before it met the library, which uses each of these
// names inside. They are global on purpose, and the functions have nothing in common with the
// library's.

extern bool dataModified;
extern QMap<QString, int> defaultGroupCaptions;

enum Team { DefaultTeam = 1, CustomTeam, FavoriteTeam };

QVector<QColor> defaultColorRamp();
QString lastOpenFilePath();
QString safeFileName(const QString &name);
QString describeColorRamp(const QColor &color);
int builtInSchemes();
int swatchColors();

class GeneratedName
{
public:
    explicit GeneratedName(const QString &base);
    int count() const;

private:
    int letters;
};

class JsonReader
{
public:
    virtual ~JsonReader();
    virtual int depth() const;
};

struct SchemeStore : JsonReader
{
    int depth() const override;
};
