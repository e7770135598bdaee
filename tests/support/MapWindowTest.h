#pragma once

#include "tests/support/TestStore.h"

#include "apps/mapviewer/window/LayerCard.h"
#include "apps/mapviewer/window/MapWindow.h"

#include <QComboBox>
#include <QObject>
#include <QPointF>

#include <memory>

/// Inside Australia, where neither outline nor inset nor meridian is near.
const QPointF outback(133.0, -25.0);

/// What the tests of the window share: a store and settings of its own for each, and the window.
class MapWindowTest : public QObject
{
    Q_OBJECT

protected:
    void setUp();
    void tearDown();
    /// A new window in place of the present one, as at the program's next start.
    void open();
    /// The card of the layer with that title.
    mapviewer::LayerCard *card(const QString &title) const;
    /// What the map shows at a place.
    QRgb pixelAt(double longitude, double latitude) const;
    /// Writes a file of this test and returns its path.
    QString writeFile(const QString &name, const QByteArray &text) const;
    /// Chooses an entry with the keyboard.
    static void choose(QComboBox *box, const QString &text);

    std::unique_ptr<TestStore> store;
    std::unique_ptr<mapviewer::MapWindow> window;
};
