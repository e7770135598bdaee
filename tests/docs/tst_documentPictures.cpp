#include "colorscheme/model/colorConversion.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QImage>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace VTObjects;

/// The pictures of the documents are the windows as they are, not reduced and not scaled: every
/// strip in them shows all colours of its scheme. tools/make-screenshots remakes them.
class tst_documentPictures : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { store = std::make_unique<TestStore>(); }
    void cleanup() { store.reset(); }

    void aStripShowsEveryColorOfItsScheme_data();
    void aStripShowsEveryColorOfItsScheme();

private:
    std::unique_ptr<TestStore> store;
};

namespace {

using Colors = std::vector<QRgb>;

void appendOther(Colors &colors, QRgb color)
{
    if (colors.empty() || colors.back() != color)
        colors.push_back(color);
}

// Neighbours that are equal make one band.
Colors bandsOf(VOColorRamp &ramp)
{
    Colors bands;
    for (unsigned int i = 0; i < ramp.getLevel(); ++i)
        appendOther(bands, toQColor(ramp.getColor(i)).rgb());
    return bands;
}

Colors bandsOf(const QImage &image, int y)
{
    Colors bands;
    for (int x = 0; x < image.width(); ++x)
        appendOther(bands, image.pixel(x, y));
    return bands;
}

int rowsWith(const QImage &image, const Colors &bands)
{
    int rows = 0;
    for (int y = 0; y < image.height(); ++y) {
        const Colors row = bandsOf(image, y);
        if (std::search(row.begin(), row.end(), bands.begin(), bands.end()) != row.end())
            ++rows;
    }
    return rows;
}

} // namespace

void tst_documentPictures::aStripShowsEveryColorOfItsScheme_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<int>("schemes");

    QTest::newRow("editor") << "scheme-editor.png" << 1;
    QTest::newRow("drop-down") << "picker-drop-down.png" << 8;
    QTest::newRow("manager") << "scheme-manager.png" << 17;
}

void tst_documentPictures::aStripShowsEveryColorOfItsScheme()
{
    QFETCH(QString, picture);
    QFETCH(int, schemes);
    const QImage image(QFINDTESTDATA("../../docs/images/" + picture));
    QVERIFY(!image.isNull());
    // The first schemes of the first built-in group are what these windows open with.
    const VOColorSchemeGroup &group = VOColorSchemeManager::instance()->defaultTeam.groups.front();
    QVERIFY(int(group.schemes.size()) >= schemes);
    for (int i = 0; i < schemes; ++i) {
        const VOColorScheme &scheme = group.schemes[std::size_t(i)];
        const Colors bands = bandsOf(*scheme.colorRamp);
        QVERIFY(bands.size() > 2);
        QVERIFY2(rowsWith(image, bands) > 0,
                 qPrintable(QStringLiteral("%1 does not show the %2 colors of %3; remake it with "
                                           "tools/make-screenshots")
                                .arg(picture)
                                .arg(bands.size())
                                .arg(toQString(scheme.name))));
    }
}

VT_TEST_MAIN(tst_documentPictures)
#include "tst_documentPictures.moc"
