#include "tests/support/SchemeFileTest.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QDir>
#include <QFile>
#include <QtTest>

using namespace VTObjects;

const char *const SchemeFileTest::goodText = R"({
  "format": "vtcontrolcolorscheme.scheme",
  "schema": 1,
  "name": "Two",
  "author": "Somebody",
  "description": "From black to white",
  "ramp": {
    "kind": "even",
    "sourceColors": [
      [0, 0, 0],
      [255, 255, 255]
    ],
    "colors": [
      [0, 0, 0],
      [127.5, 0.1, 1e-45],
      [255, 255, 255]
    ]
  }
}
)";

const char *const SchemeFileTest::hsvText = R"({
  "format": "vtcontrolcolorscheme.scheme",
  "schema": 1,
  "name": "\u0000\n\"\\\u007f\u0085\u2028\ufeff\ud800é",
  "author": ["\ud83d", 56832],
  "description": "",
  "ramp": {
    "kind": "randomHsv",
    "seed": -2147483648,
    "paramsChanged": true,
    "minH": 1,
    "maxH": 2147483647,
    "minS": -3,
    "maxS": 4,
    "minV": 5,
    "maxV": 6,
    "colors": []
  }
}
)";

void SchemeFileTest::setUp()
{
    store = std::make_unique<TestStore>();
}

void SchemeFileTest::tearDown()
{
    store.reset();
}

VOString SchemeFileTest::file(const QString &name) const
{
    return toVOString(store->path(name));
}

QByteArray SchemeFileTest::content(const QString &name) const
{
    QFile in(store->path(name));
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("cannot be read");
}

void SchemeFileTest::write(const QByteArray &bytes) const
{
    QFile out(store->path(QStringLiteral("scheme.vcs")));
    QVERIFY(out.open(QIODevice::WriteOnly));
    QCOMPARE(out.write(bytes), qint64(bytes.size()));
}

bool SchemeFileTest::read(const QByteArray &bytes) const
{
    write(bytes);
    VOColorScheme scheme;
    return VOColorSchemeManager::readFile(scheme, file());
}

QStringList SchemeFileTest::filesThere() const
{
    return QDir(store->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

VOColorScheme SchemeFileTest::goodScheme()
{
    rgb_color<float> sources[] = {{0, 0, 0}, {255, 255, 255}};
    auto *ramp = new VOEvenColorRamp;
    ramp->setSourceColor(2, sources);
    ramp->addColor({0, 0, 0});
    ramp->addColor({127.5F, 0.1F, 1e-45F});
    ramp->addColor({255, 255, 255});
    VOColorScheme scheme;
    scheme.name = L"Two";
    scheme.author = L"Somebody";
    scheme.describe = L"From black to white";
    scheme.colorRamp = ramp;
    return scheme;
}

QByteArray SchemeFileTest::replaced(const char *before, const QByteArray &after)
{
    QByteArray text = goodText;
    if (text.count(before) == 0)
        qFatal("the text has no %s", before);
    return text.replace(text.indexOf(before), int(qstrlen(before)), after);
}
