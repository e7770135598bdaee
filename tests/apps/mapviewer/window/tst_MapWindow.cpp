#include "tests/support/MapWindowTest.h"

#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"

#include "apps/mapviewer/layers/GridLayer.h"
#include "apps/mapviewer/layers/PolygonLayer.h"
#include "apps/mapviewer/layers/RampColors.h"
#include "apps/mapviewer/map/MapWidget.h"
#include "apps/mapviewer/map/PictureFile.h"
#include "apps/mapviewer/window/AppSettings.h"
#include "apps/mapviewer/window/LegendWidget.h"

#include "colorscheme/picker/VTColorSchemeComboBox.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QSpinBox>
#include <QToolButton>
#include <QWheelEvent>
#include <QtTest>

#include <cmath>

using namespace mapviewer;
using namespace VTObjects;

class tst_MapWindow : public MapWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void startsWithThreeLayersAndTheirLegends();
    void classCountShowsWithClasses();
    void hillShadingChangesTheMap();
    void aGoodFileBecomesTheUppermostLayer();
    void theFolderOfAnOpenedFileIsRemembered();
    void aBadFileIsRefusedWithItsLine_data();
    void aBadFileIsRefusedWithItsLine();
    void aMissingFileIsRefused();
    void removedLayersLeaveTheMap();
    void hiddenLayersLeaveTheMap();
    void thePointerReadsValueAndColor();
    void aClickOnAnInsetGoesThere();
    void wheelAndKeysZoom();
    void aDragMovesTheMap();
    void darkThemeReachesTheMapAndComesBack();
    void simulatedVisionReachesEverything();
    void simulatedVisionReachesDropDownAndDialogs();
    void simulatedVisionKeepsTheBackgroundOfWindows();
    void theMapIsExportedAsItsNameEnds();
    void anExportThatCannotBeSaysWhy_data();
    void anExportThatCannotBeSaysWhy();
    void theHintStaysClosed();
};

static QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

static bool isGray(const QImage &image)
{
    for (int y = 0; y < image.height(); y += 2) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qRed(pixel) != qGreen(pixel) || qGreen(pixel) != qBlue(pixel))
                return false;
        }
    }
    return !image.isNull();
}

static const QByteArray smallGrid =
    "ncols 2\nnrows 1\nxllcorner 5000\nyllcorner 5000\ncellsize 10\n1 2\n";

void tst_MapWindow::startsWithThreeLayersAndTheirLegends()
{
    const QList<LayerCard *> cards = window->cards();
    QCOMPARE(cards.size(), 3);
    QCOMPARE(cards.at(0)->layer()->title(), QString("Relief and sea floor"));
    QCOMPARE(cards.at(1)->layer()->title(), QString("Terrain"));
    QCOMPARE(cards.at(2)->layer()->title(), QString("Countries"));
    for (LayerCard *shown : cards) {
        const Legend legend = shown->findChild<LegendWidget *>()->legend();
        QVERIFY(!legend.strip.isEmpty() || legend.classes.size() >= 7);
        QVERIFY(!shown->currentScheme().isNull());
        QVERIFY(!shown->layer()->source().isEmpty());
    }
    auto *countries = static_cast<PolygonLayer *>(cards.at(2)->layer());
    QCOMPARE(countries->classificationMethod(), ClassificationMethod::Quantiles);
    QCOMPARE(countries->fieldNames(), QStringList({"Continent", "GDP (million USD)",
                                                   "GDP per head (USD)", "Name", "Population"}));
    auto *relief = static_cast<GridLayer *>(cards.at(0)->layer());
    QVERIFY(relief->crossesZero() && relief->hillShading());
}

void tst_MapWindow::classCountShowsWithClasses()
{
    LayerCard *terrain = card("Terrain");
    auto *count = terrain->findChild<QSpinBox *>("classCount");
    QVERIFY(!count->isVisible());
    choose(terrain->findChild<QComboBox *>("classificationMethod"), "Quantiles");
    QVERIFY(count->isVisible());
    count->setValue(4);
    QCOMPARE(terrain->findChild<LegendWidget *>()->legend().classes.size(), 4);
}

void tst_MapWindow::hillShadingChangesTheMap()
{
    LayerCard *terrain = card("Terrain");
    window->showLayer(terrain->layer());
    const QImage shaded = window->map()->grab().toImage();
    auto *box = terrain->findChild<QCheckBox *>("hillShading");
    QVERIFY(box->isChecked());
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    QVERIFY(!static_cast<GridLayer *>(terrain->layer())->hillShading());
    QVERIFY(window->map()->grab().toImage() != shaded);
}

void tst_MapWindow::aGoodFileBecomesTheUppermostLayer()
{
    FileProblem problem;
    QVERIFY(window->openFile(writeFile("small.asc", smallGrid), &problem));
    QCOMPARE(window->cards().size(), 4);
    LayerCard *added = window->cards().first();
    QCOMPARE(added->layer()->title(), QString("small"));
    // It is shown: its left cell has the ramp's first colour.
    const QRgb first = rampColors(added->picker()->currentColorRamp()).first();
    QCOMPARE(pixelAt(5002.0, 5005.0), first);
    QVERIFY(!window->map()->view().geographic());
}

void tst_MapWindow::theFolderOfAnOpenedFileIsRemembered()
{
    FileProblem problem;
    QVERIFY(window->openFile(writeFile("small.asc", smallGrid), &problem));
    QCOMPARE(appSettings().value("history/lastOpenFilePath").toString(), store->path());
}

void tst_MapWindow::aBadFileIsRefusedWithItsLine_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    QTest::newRow("grid") << "bad.asc" << QByteArray("ncols 2\nnrows two\n")
                          << "bad.asc, line 2: The value \"two\" of \"nrows\" is not a number.";
    QTest::newRow("polygons") << "bad.json"
                              << QByteArray("{\"type\":\"Polygon\",\n\n\"coordinates\":[]}")
                              << "bad.json, line 3: A polygon is a list of one or more rings.";
    QTest::newRow("a name like mark-up") << "<b>bad.txt" << QByteArray("Dear reader,\n")
                                         << "<b>bad.txt, line 1: \"Dear\" is no key of an "
                                            "ASCII grid's header.";
    QTest::newRow("neither") << "bad.txt" << QByteArray("Dear reader,\n")
                             << "bad.txt, line 1: \"Dear\" is no key of an ASCII grid's header.";
}

void tst_MapWindow::aBadFileIsRefusedWithItsLine()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    const QString path = writeFile(name, text);
    QString shown;
    Qt::TextFormat format = Qt::AutoText;
    ModalDriver driver;
    driver.next([&](QWidget *box) {
        auto *message = static_cast<QMessageBox *>(box);
        shown = message->text();
        format = message->textFormat();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    window->openFileOrTell(path);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(shown, message);
    QCOMPARE(format, Qt::PlainText);
    QCOMPARE(window->cards().size(), 3);
}

void tst_MapWindow::aMissingFileIsRefused()
{
    FileProblem problem;
    QVERIFY(!window->openFile(store->path("absent.asc"), &problem));
    QCOMPARE(problem.line, 0);
    QVERIFY(!problem.text.isEmpty());
    QVERIFY(appSettings().value("history/lastOpenFilePath").toString().isEmpty());
}

void tst_MapWindow::removedLayersLeaveTheMap()
{
    for (int left = 2; left >= 0; --left) {
        auto *button = window->cards().last()->findChild<QToolButton *>("removeLayer");
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_COMPARE(window->cards().size(), left);
    }
    QCOMPARE(pixelAt(outback.x(), outback.y()), window->map()->mapStyle().water.rgb());
    window->map()->showAll();
    QVERIFY(!window->map()->grab().isNull());
}

void tst_MapWindow::hiddenLayersLeaveTheMap()
{
    auto *box = card("Countries")->findChild<QCheckBox *>();
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    QVERIFY(!card("Countries")->layer()->isVisible());
    QCOMPARE(pixelAt(outback.x(), outback.y()), window->map()->mapStyle().water.rgb());
}

void tst_MapWindow::thePointerReadsValueAndColor()
{
    auto *value = window->findChild<QLabel *>("value");
    auto *position = window->findChild<QLabel *>("position");
    auto *swatch = window->findChild<QLabel *>("swatch");
    QVERIFY(swatch->isHidden());
    const QPoint pixel = window->map()->view().toScreen(outback).toPoint();
    QTest::mouseMove(window->map(), pixel);
    QTest::mouseMove(window->map(), pixel + QPoint(1, 0));
    const QColor color(pixelAt(outback.x(), outback.y()));
    QTRY_VERIFY2(value->text().contains("Australia: "), qPrintable(value->text()));
    QVERIFY2(value->text().endsWith(color.name()), qPrintable(value->text()));
    QVERIFY(!swatch->isHidden());
    QCOMPARE(QColor(swatch->pixmap(Qt::ReturnByValue).toImage().pixel(10, 5)), color);
    QVERIFY2(position->text().contains("S") && position->text().contains("E"),
             qPrintable(position->text()));
    // On the sea there is nothing to read.
    QTest::mouseMove(window->map(), window->map()->view().toScreen(QPointF(85.0, -35.0)).toPoint());
    QTRY_COMPARE(value->text(), QString("No value here"));
    QVERIFY(swatch->isHidden());
}

void tst_MapWindow::aClickOnAnInsetGoesThere()
{
    const auto *map = window->map();
    // The lowest inset is that of the terrain; it stands in the lower left corner.
    QTest::mouseClick(window->map(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(60, map->height() - 60));
    const QRectF terrain = card("Terrain")->layer()->extent();
    QVERIFY(map->view().visible().contains(terrain));
    QVERIFY(map->view().visible().height() < terrain.height() * 1.5);
    // A button leads back.
    window->map()->showAll();
    QVERIFY(map->view().visible().width() > 300.0);
    QTest::mouseClick(card("Terrain")->findChild<QToolButton *>("zoomToLayer"), Qt::LeftButton);
    QVERIFY(map->view().visible().height() < terrain.height() * 1.5);
}

void tst_MapWindow::wheelAndKeysZoom()
{
    MapWidget *map = window->map();
    const QPointF pixel(300, 200);
    const QPointF place = map->view().toMap(pixel);
    const double before = map->view().scale();
    QWheelEvent event(pixel, map->mapToGlobal(pixel.toPoint()), QPoint(), QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(map, &event);
    QCOMPARE(map->view().scale(), before * 1.25);
    QVERIFY(std::hypot(map->view().toMap(pixel).x() - place.x(),
                       map->view().toMap(pixel).y() - place.y()) < 1e-6);
    QTest::keyClick(map, Qt::Key_Minus);
    QCOMPARE(map->view().scale(), before);
    QTest::keyClick(map, Qt::Key_Plus);
    QTest::keyClick(map, Qt::Key_Right);
    QTest::keyClick(map, Qt::Key_Home);
    QCOMPARE(map->view().scale(), before);
}

void tst_MapWindow::aDragMovesTheMap()
{
    MapWidget *map = window->map();
    const QPoint from(500, 150);
    const QPoint to(420, 190);
    const QPointF center = map->view().center();
    const double scale = map->view().scale();
    QTest::mousePress(map, Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent move(QEvent::MouseMove, to, map->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(map, &move);
    QTest::mouseRelease(map, Qt::LeftButton, Qt::NoModifier, to);
    QCOMPARE(map->view().scale(), scale);
    QVERIFY(map->view().center().x() > center.x());
    QVERIFY(std::abs(map->view().center().y() - (center.y() + 40.0 / scale)) < 1e-6);
}

void tst_MapWindow::darkThemeReachesTheMapAndComesBack()
{
    const QRgb light = pixelAt(85.0, -35.0);
    window->setDarkTheme(true);
    QVERIFY(QApplication::palette().color(QPalette::Window).lightness() < 80);
    QVERIFY(QColor(pixelAt(85.0, -35.0)).lightness() < 80);
    window->close();
    open();
    QVERIFY(QApplication::palette().color(QPalette::Window).lightness() < 80);
    window->setDarkTheme(false);
    QCOMPARE(pixelAt(85.0, -35.0), light);
}

void tst_MapWindow::simulatedVisionReachesEverything()
{
    window->setVision(ColorVision::Gray);
    const QImage gray = window->grab().toImage();
    QVERIFY(isGray(gray));
    QVERIFY(window->windowTitle().contains("gray vision"));
    window->setVision(ColorVision::Normal);
    QVERIFY(!window->windowTitle().contains("vision"));
    const QImage normal = window->grab().toImage();
    QVERIFY(!isGray(normal));
}

void tst_MapWindow::simulatedVisionReachesDropDownAndDialogs()
{
    window->setVision(ColorVision::Gray);
    QVector<QImage> seen;
    const auto look = [&seen](QWidget *shown) {
        seen.append(shown->grab().toImage());
        QTest::keyClick(shown, Qt::Key_Escape);
    };
    ModalDriver driver;
    driver.next(look);
    QTest::mouseClick(card("Countries")->picker(), Qt::LeftButton);
    driver.next(look);
    window->manageSchemes();
    driver.next(look);
    QTest::mouseClick(card("Countries")->findChild<QToolButton *>("editScheme"), Qt::LeftButton);
    window->setVision(ColorVision::Normal);
    driver.next(look);
    QTest::mouseClick(card("Countries")->picker(), Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(seen.size(), 4);
    for (int i = 0; i < seen.size(); ++i)
        QVERIFY2(isGray(seen.at(i)) == (i < 3), qPrintable(QString::number(i)));
}

void tst_MapWindow::simulatedVisionKeepsTheBackgroundOfWindows()
{
    const QColor background(200, 120, 40);
    QPalette palette;
    palette.setColor(QPalette::Window, background);
    QDialog dialog(window.get());
    dialog.setPalette(palette);
    dialog.resize(80, 60);
    dialog.show();
    QCOMPARE(QColor(dialog.grab().toImage().pixel(2, 2)), background);
    for (const ColorVision vision : {ColorVision::Gray, ColorVision::Deutan}) {
        window->setVision(vision);
        QCOMPARE(QColor(dialog.grab().toImage().pixel(2, 2)),
                 QColor(simulated(background.rgb(), vision)));
    }
}

void tst_MapWindow::theMapIsExportedAsItsNameEnds()
{
    QString problem;
    const QString path = store->path("map.PNG");
    QVERIFY2(window->exportMap(path, &problem), qPrintable(problem));
    QCOMPARE(QImage(path).size(), QSize(2800, 1800));
    const QString page = store->path("map.pdf");
    QVERIFY2(window->exportMap(page, &problem), qPrintable(problem));
    const QByteArray pdf = contentOf(page);
    QVERIFY(pdf.startsWith("%PDF-") && pdf.contains("%%EOF"));
    const QString drawing = store->path("map.svg");
    if (!pictureEndings().contains("svg")) {
        QVERIFY(!window->exportMap(drawing, &problem));
        QVERIFY(!QFile::exists(drawing));
        return;
    }
    QVERIFY2(window->exportMap(drawing, &problem), qPrintable(problem));
    const QByteArray svg = contentOf(drawing);
    QVERIFY(svg.contains("viewBox=\"0 0 1400 900\""));
    // Countries are areas and names are letters, not pixels.
    QVERIFY(svg.count("<path") > 100);
    QVERIFY(svg.contains("Relief and sea floor"));
}

void tst_MapWindow::anExportThatCannotBeSaysWhy_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a format that is not written") << "map.jpg"
                                                  << "map.jpg: a map is written as PNG";
    QTest::newRow("no ending") << "map"
                               << "Choose a name that ends in \".png\"";
    QTest::newRow("no such folder") << "absent/map.png"
                                    << "absent/map.png could not be written: ";
}

void tst_MapWindow::anExportThatCannotBeSaysWhy()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    QString problem;
    QVERIFY(!window->exportMap(store->path(name), &problem));
    QVERIFY2(problem.contains(reason), qPrintable(problem));
    QVERIFY(!QFile::exists(store->path(name)));
}

void tst_MapWindow::theHintStaysClosed()
{
    auto *hint = window->findChild<QWidget *>("hint");
    QVERIFY(hint && hint->isVisible());
    QTest::mouseClick(hint->findChild<QToolButton *>(), Qt::LeftButton);
    QVERIFY(!hint->isVisible());
    open();
    QVERIFY(!window->findChild<QWidget *>("hint"));
}

VT_TEST_MAIN(tst_MapWindow)
#include "tst_MapWindow.moc"
