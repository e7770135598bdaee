#include "tests/support/ColorMenuParts.h"

#include "tests/support/ModalDriver.h"
#include "vtcontrolbase/VTColorMenu.h"

#include <QtTest>

#include <algorithm>

namespace ColorMenuParts {

QWidget *part(QWidget *menu, const char *name)
{
    return menu->findChild<QWidget *>(QLatin1String(name));
}

QLineEdit *hexEdit(QWidget *menu)
{
    return menu->findChild<QLineEdit *>();
}

QLabel *hexMessage(QWidget *menu)
{
    const QList<QLabel *> labels = part(menu, "hexField")->findChildren<QLabel *>();
    const auto found = std::find_if(labels.begin(), labels.end(),
                                    [](QLabel *label) { return !label->text().isEmpty(); });
    return found == labels.end() ? nullptr : *found;
}

QPoint cellCenter(int row, int column)
{
    return QPoint(margin + column * cell + cell / 2, margin + row * cell + cell / 2);
}

QImage swatchImage(QWidget *grid, int row, int column)
{
    const QRect inside(margin + column * cell + 3, margin + row * cell + 3, cell - 6, cell - 6);
    return grid->grab().toImage().copy(inside);
}

bool isPlain(const QImage &swatch)
{
    QImage plain = swatch;
    plain.fill(swatch.pixelColor(0, 0));
    return plain == swatch;
}

QAction *moreColors(QMenu *menu)
{
    return menu->actions().constLast();
}

void press(QWidget *menu, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget *const focused = menu->focusWidget();
    QTest::keyClick(focused ? focused : menu, key, modifiers);
}

void chooseHex(const QColor &color)
{
    VTColorMenu menu(nullptr);
    ModalDriver driver;
    driver.next([&](QWidget *popup) {
        hexEdit(popup)->setFocus();
        hexEdit(popup)->setText(color.name());
        press(popup, Qt::Key_Return);
    });
    menu.exec(QPoint(100, 100));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(menu.getColor(), color.rgb());
}

} // namespace ColorMenuParts
