#pragma once

#include "tests/support/TestStore.h"

#include "vobase/VOString.h"
#include "vomap/VOColorScheme.h"

#include <QByteArray>
#include <QObject>

#include <memory>

/// What the tests of scheme files share: a folder for each, and a file that is well formed.
class SchemeFileTest : public QObject
{
    Q_OBJECT

protected:
    void setUp();
    void tearDown();

    VTObjects::VOString file(const QString &name = QStringLiteral("scheme.vcs")) const;
    QByteArray content(const QString &name = QStringLiteral("scheme.vcs")) const;
    void write(const QByteArray &bytes) const;
    /// True if a file of these bytes is read.
    bool read(const QByteArray &bytes) const;
    QStringList filesThere() const;

    static const char *const goodText;
    /// An HSV ramp, with escapes in its texts and numbers beyond their ranges.
    static const char *const hsvText;
    /// What goodText says.
    static VTObjects::VOColorScheme goodScheme();
    /// goodText with another text in the first place of this one, which must be there.
    static QByteArray replaced(const char *before, const QByteArray &after);

    std::unique_ptr<TestStore> store;
};
