#pragma once

#include <QByteArray>
#include <QPair>
#include <QVector>

/// The ways in which a team's file is damaged as a whole, each with its name.
inline QVector<QPair<const char *, QByteArray>> damagedForms(const QByteArray &whole)
{
    return {{"empty", QByteArray()},
            {"with a zeroed start", QByteArray(16, '\0') + whole.mid(16)},
            {"of garbage", QByteArray("garbage").repeated(100)},
            {"with bytes behind its end", whole + '\0'},
            {"cut in half", whole.left(whole.size() / 2)},
            {"with a zeroed block", QByteArray(whole).replace(40, 16, QByteArray(16, '\0'))},
            {"of zeroes", QByteArray(whole.size(), '\0')}};
}
