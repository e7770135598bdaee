#include "tests/support/MapWindowTest.h"

#include "tests/support/TestMain.h"

#include "apps/mapviewer/layers/GridLayer.h"
#include "apps/mapviewer/layers/PolygonLayer.h"
#include "apps/mapviewer/map/MapWidget.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QToolButton>
#include <QtTest>

using namespace mapviewer;
using namespace VTObjects;

/// The panel of layers: what it remembers and how it is used.
class tst_mapWindowLayers : public MapWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void layersAndTheirGradingComeBack();
    void layersComeBackWithoutAGoodbye();
    void anEmptyPanelStaysEmptyUntilTheSampleMapsAreWanted();
    void aMapThatIsGoneIsSaidAndNotForgotten();
    void aForgottenMapIsAskedForNoMore();
    void twoMapsOfOneNameKeepTheirOwnSchemes();
    void aFileOfTheLastRunIsNotOpenedTwice();
    void longNamesStayWithinThePanel();
    void tabGoesFromTheUppermostCardDown();
    void aMapInMetersLeavesTheWorldAlone();
    void theLastMapInMetersGivesWayToTheWorld();
    void aRefusedFileIsNamedWithTheFormatItShouldHave_data();
    void aRefusedFileIsNamedWithTheFormatItShouldHave();

private:
    QString smallGrid(const QString &name) const
    {
        return writeFile(name, "ncols 2\nnrows 2\nxllcorner 500000\nyllcorner 5400000\n"
                               "cellsize 1000\n1 -2\n3 4\n");
    }
    void openGood(const QString &path)
    {
        FileProblem problem;
        QVERIFY2(window->openFile(path, &problem), qPrintable(problem.text));
    }
};

static void toggle(LayerCard *card, const char *name)
{
    auto *box = card->findChild<QCheckBox *>(name);
    QVERIFY(box);
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
}

static QStringList titles(const MapWindow &window)
{
    QStringList found;
    for (const LayerCard *card : window.cards())
        found.append(card->layer()->title());
    return found;
}

void tst_mapWindowLayers::layersAndTheirGradingComeBack()
{
    openGood(smallGrid("mine.asc"));
    toggle(card("mine"), "zeroInMiddle");
    toggle(card("Terrain"), "hillShading");
    choose(card("Relief and sea floor")->findChild<QComboBox *>("classificationMethod"),
           "Quantiles");
    card("Relief and sea floor")->findChild<QSpinBox *>("classCount")->setValue(5);
    choose(card("Countries")->findChild<QComboBox *>("field"), "Population");
    choose(card("Countries")->findChild<QComboBox *>("classificationMethod"), "Unique values");
    QVERIFY(card("mine")->choose({"Default", "DEM", "Dry relief"}));
    auto *shown = card("Terrain")->findChild<QCheckBox *>();
    QTest::mouseClick(shown, Qt::LeftButton, Qt::NoModifier, QPoint(8, shown->height() / 2));
    const QStringList before = titles(*window);
    window->close();
    open();
    QCOMPARE(titles(*window), before);
    QCOMPARE(titles(*window).first(), QString("mine"));
    QVERIFY(static_cast<GridLayer *>(card("mine")->layer())->zeroInMiddle());
    QVERIFY(card("mine")->findChild<QCheckBox *>("zeroInMiddle")->isChecked());
    QCOMPARE(card("mine")->currentScheme().scheme, VOString("Dry relief"));
    QVERIFY(!static_cast<GridLayer *>(card("Terrain")->layer())->hillShading());
    QVERIFY(!card("Terrain")->layer()->isVisible());
    QVERIFY(!card("Terrain")->findChild<QCheckBox *>()->isChecked());
    const MapLayer *relief = card("Relief and sea floor")->layer();
    QCOMPARE(relief->classificationMethod(), ClassificationMethod::Quantiles);
    QCOMPARE(relief->classCount(), 5);
    QCOMPARE(card("Relief and sea floor")->findChild<QSpinBox *>("classCount")->value(), 5);
    auto *countries = static_cast<PolygonLayer *>(card("Countries")->layer());
    QCOMPARE(countries->field(), QString("Population"));
    QCOMPARE(countries->classificationMethod(), ClassificationMethod::UniqueValues);
    QVERIFY(!countries->source().isEmpty());
}

void tst_mapWindowLayers::layersComeBackWithoutAGoodbye()
{
    openGood(smallGrid("mine.asc"));
    QTest::mouseClick(card("Terrain")->findChild<QToolButton *>("removeLayer"), Qt::LeftButton);
    QTRY_VERIFY(!card("Terrain"));
    // Not closed but gone, as when the session ends.
    window.reset();
    open();
    QCOMPARE(titles(*window), QStringList({"mine", "Relief and sea floor", "Countries"}));
}

void tst_mapWindowLayers::anEmptyPanelStaysEmptyUntilTheSampleMapsAreWanted()
{
    for (int left = 2; left >= 0; --left) {
        QTest::mouseClick(window->cards().last()->findChild<QToolButton *>("removeLayer"),
                          Qt::LeftButton);
        QTRY_COMPARE(window->cards().size(), left);
    }
    open();
    QVERIFY(window->cards().isEmpty());
    auto *samples = window->findChild<QAction *>("addSampleMaps");
    QVERIFY(samples);
    samples->trigger();
    QCOMPARE(window->cards().size(), 3);
    samples->trigger();
    QCOMPARE(window->cards().size(), 3);
}

void tst_mapWindowLayers::aMapThatIsGoneIsSaidAndNotForgotten()
{
    const QString path = smallGrid("mine.asc");
    openGood(path);
    choose(card("mine")->findChild<QComboBox *>("classificationMethod"), "Quantiles");
    QVERIFY(QFile::rename(path, path + ".away"));
    open();
    QVERIFY(!card("mine"));
    auto *notice = window->findChild<QWidget *>("missingMaps");
    QVERIFY(notice && notice->isVisible());
    QVERIFY(notice->findChild<QLabel *>("text")->text().contains(path));
    // It comes back where the file does, also two runs later.
    open();
    notice = window->findChild<QWidget *>("missingMaps");
    QVERIFY(QFile::rename(path + ".away", path));
    QTest::mouseClick(notice->findChild<QPushButton *>("tryAgain"), Qt::LeftButton);
    QVERIFY(card("mine"));
    QCOMPARE(card("mine")->layer()->classificationMethod(), ClassificationMethod::Quantiles);
    QVERIFY(!notice->isVisible());
}

void tst_mapWindowLayers::aForgottenMapIsAskedForNoMore()
{
    const QString path = smallGrid("mine.asc");
    openGood(path);
    QVERIFY(QFile::remove(path));
    open();
    auto *notice = window->findChild<QWidget *>("missingMaps");
    QVERIFY(notice);
    QTest::mouseClick(notice->findChild<QPushButton *>("forget"), Qt::LeftButton);
    open();
    QVERIFY(!window->findChild<QWidget *>("missingMaps"));
    QCOMPARE(window->cards().size(), 3);
}

void tst_mapWindowLayers::twoMapsOfOneNameKeepTheirOwnSchemes()
{
    QVERIFY(QDir().mkpath(store->path("a")) && QDir().mkpath(store->path("b")));
    openGood(smallGrid("a/heights.asc"));
    openGood(smallGrid("b/heights.asc"));
    const QList<LayerCard *> both = window->cards().mid(0, 2);
    QVERIFY(both.at(0)->choose({"Default", "DEM", "Temperate hills"}));
    QVERIFY(both.at(1)->choose({"Default", "DEM", "Dry relief"}));
    open();
    QCOMPARE(window->cards().at(0)->currentScheme().scheme, VOString("Temperate hills"));
    QCOMPARE(window->cards().at(1)->currentScheme().scheme, VOString("Dry relief"));
}

void tst_mapWindowLayers::aFileOfTheLastRunIsNotOpenedTwice()
{
    const QString path = smallGrid("mine.asc");
    window->showFile(path);
    open();
    window->map()->showExtent(card("Countries")->layer()->extent());
    window->showFile(path);
    QCOMPARE(window->cards().size(), 4);
    QVERIFY(!window->map()->view().geographic());
}

void tst_mapWindowLayers::longNamesStayWithinThePanel()
{
    const QString name = QString("A & very ").repeated(20) + "long name";
    const QString oneWord(120, 'w');
    const QByteArray text = QString("{\"type\":\"Feature\",\"geometry\":{\"type\":\"Polygon\","
                                    "\"coordinates\":[[[0,0],[9,0],[9,9],[0,0]]]},\"properties\":"
                                    "{\"%1\":1,\"%2\":\"%2\"}}")
                                .arg(name, oneWord)
                                .toUtf8();
    openGood(writeFile(QString("file ").repeated(40) + "x.geojson", text));
    LayerCard *added = window->cards().first();
    auto *area = window->findChild<QScrollArea *>();
    for (const QString &field : {name, oneWord}) {
        added->findChild<QComboBox *>("field")->setCurrentText(field);
        QApplication::processEvents();
        for (LayerCard *each : window->cards()) {
            QVERIFY2(each->width() <= area->viewport()->width(), qPrintable(field));
            for (const QToolButton *button : each->findChildren<QToolButton *>())
                QVERIFY(each->rect().contains(button->geometry()));
        }
        // A narrow panel is no answer if half of the text is lost without a way to read it.
        QVERIFY(added->findChild<QComboBox *>("field")->toolTip().contains(
            field.left(8).toHtmlEscaped()));
    }
    QVERIFY(area->width() < 400);
}

void tst_mapWindowLayers::tabGoesFromTheUppermostCardDown()
{
    openGood(smallGrid("mine.asc"));
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    const QList<LayerCard *> cards = window->cards();
    cards.first()->findChild<QCheckBox *>()->setFocus();
    int last = 0;
    int steps = 0;
    QSet<int> visited{0};
    while (steps++ < 60) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const QWidget *at = QApplication::focusWidget();
        int index = -1;
        for (int i = 0; i < cards.size(); ++i)
            index = cards.at(i)->isAncestorOf(at) ? i : index;
        if (index < 0)
            break;
        QVERIFY2(index == last || index == last + 1, qPrintable(QString::number(index)));
        last = index;
        visited.insert(index);
    }
    QCOMPARE(visited.size(), 4);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(window->map()));
}

void tst_mapWindowLayers::aMapInMetersLeavesTheWorldAlone()
{
    openGood(smallGrid("mine.asc"));
    QVERIFY(!window->map()->view().geographic());
    QVERIFY(!card("Countries")->findChild<QLabel *>("elsewhere")->isHidden());
    QVERIFY(card("mine")->findChild<QLabel *>("elsewhere")->isHidden());
    window->map()->showAll();
    QVERIFY(window->map()->view().visible().width() < 10000.0);
    QTest::mouseClick(card("Countries")->findChild<QToolButton *>("zoomToLayer"), Qt::LeftButton);
    QVERIFY(window->map()->view().geographic());
    window->map()->showAll();
    QVERIFY(window->map()->view().visible().width() < 800.0);
    QVERIFY(!card("mine")->findChild<QLabel *>("elsewhere")->isHidden());
    QVERIFY(card("Countries")->findChild<QLabel *>("elsewhere")->isHidden());
}

void tst_mapWindowLayers::theLastMapInMetersGivesWayToTheWorld()
{
    openGood(smallGrid("mine.asc"));
    auto *shown = card("mine")->findChild<QCheckBox *>();
    QTest::mouseClick(shown, Qt::LeftButton, Qt::NoModifier, QPoint(8, shown->height() / 2));
    QVERIFY(window->map()->view().geographic());
    // Shown again, it is what one looks at.
    QTest::mouseClick(shown, Qt::LeftButton, Qt::NoModifier, QPoint(8, shown->height() / 2));
    QVERIFY(!window->map()->view().geographic());
    QTest::mouseClick(card("mine")->findChild<QToolButton *>("removeLayer"), Qt::LeftButton);
    QTRY_VERIFY(window->map()->view().geographic());
}

void tst_mapWindowLayers::aRefusedFileIsNamedWithTheFormatItShouldHave_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    QTest::newRow("no GeoJSON") << "bad.geojson" << QByteArray("Dear reader,\n")
                                << "This is not GeoJSON: such a file begins with \"{\".";
    QTest::newRow("a picture") << "bad.png" << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)
                               << "This is neither an ASCII grid nor GeoJSON, but no text at all.";
    QTest::newRow("empty") << "bad.asc" << QByteArray(" \n") << "The file is empty.";
}

void tst_mapWindowLayers::aRefusedFileIsNamedWithTheFormatItShouldHave()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    FileProblem problem;
    QVERIFY(!window->openFile(writeFile(name, text), &problem));
    QCOMPARE(problem.text, message);
}

VT_TEST_MAIN(tst_mapWindowLayers)
#include "tst_mapWindowLayers.moc"
