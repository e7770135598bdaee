#include "tests/support/MapWindowTest.h"

#include "apps/mapviewer/map/MapWidget.h"

#include <QFile>
#include <QtTest>

using namespace mapviewer;

void MapWindowTest::setUp()
{
    store = std::make_unique<TestStore>();
    open();
}

void MapWindowTest::tearDown()
{
    window.reset();
    store.reset();
}

void MapWindowTest::open()
{
    window = std::make_unique<MapWindow>();
    window->resize(1200, 800);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

LayerCard *MapWindowTest::card(const QString &title) const
{
    for (LayerCard *found : window->cards()) {
        if (found->layer()->title() == title)
            return found;
    }
    return nullptr;
}

QRgb MapWindowTest::pixelAt(double longitude, double latitude) const
{
    const QImage image = window->map()->grab().toImage();
    return image.pixel(window->map()->view().toScreen(QPointF(longitude, latitude)).toPoint());
}

QString MapWindowTest::writeFile(const QString &name, const QByteArray &text) const
{
    QFile file(store->path(name));
    if (!file.open(QIODevice::WriteOnly))
        return {};
    file.write(text);
    return file.fileName();
}

void MapWindowTest::choose(QComboBox *box, const QString &text)
{
    const int index = box->findText(text);
    QVERIFY2(index >= 0, qPrintable(text));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(box->currentText(), text);
}
