#pragma once

#include <QCoreApplication>
#include <QTranslator>

/// Translates, while it is there, every text into itself with its context before it:
/// "Context:text".
class Tagger : public QTranslator
{
public:
    Tagger() { QCoreApplication::installTranslator(this); }
    ~Tagger() override { QCoreApplication::removeTranslator(this); }
    QString translate(const char *context, const char *text, const char * /*hint*/,
                      int /*n*/) const override
    {
        return QLatin1String(context) + QLatin1Char(':') + QLatin1String(text);
    }
    bool isEmpty() const override { return false; }
};
