#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"

#include "apps/mapviewer/window/Theme.h"
#include "apps/mapviewer/window/ThemeStyle.h"

#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/VTAddColorSchemeGroupDialog.h"
#include "vomap/VOColorSchemeGroup.h"
#include "vtcontrolbase/VTColorMenu.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QtTest>

#include <cmath>

using namespace mapviewer;

/// Fields have edges that can be seen.
class tst_ThemeStyle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup() { QApplication::setPalette(lightPalette()); }

    void edgesStandOut_data();
    void edgesStandOut();
    void plainFieldsHaveAnEdge_data();
    void plainFieldsHaveAnEdge();
    void theLibrarysFieldsHaveAnEdge_data();
    void theLibrarysFieldsHaveAnEdge();
};

static double luminance(const QColor &color)
{
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

static double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

// The weakest of the four edges: the pixel within two of the border that stands out most, against
// the field inside and against what is around it.
static double weakestEdge(const QWidget *field)
{
    QWidget *window = field->window();
    const QImage image = window->grab().toImage();
    const QRect box(field->mapTo(window, QPoint(0, 0)), field->size());
    const auto along = [&](const QPoint &border, const QPoint &inwards) {
        const QColor outside(image.pixel(border - inwards * 2));
        const QColor inside(image.pixel(border + inwards * 3));
        double best = 0.0;
        for (int i = -1; i <= 2; ++i) {
            const QColor pixel(image.pixel(border + inwards * i));
            best = std::max(best, std::min(contrast(pixel, outside), contrast(pixel, inside)));
        }
        return best;
    };
    const QPoint middle = box.center();
    // The right side may hold buttons, the upper and lower ones text: a third from the left is
    // neither.
    const int x = box.left() + box.width() / 3;
    return std::min({along(QPoint(box.left(), middle.y()), QPoint(1, 0)),
                     along(QPoint(x, box.top()), QPoint(0, 1)),
                     along(QPoint(x, box.bottom()), QPoint(0, -1))});
}

void tst_ThemeStyle::initTestCase()
{
    QApplication::setStyle(new ThemeStyle);
}

void tst_ThemeStyle::edgesStandOut_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << lightPalette();
    QTest::newRow("dark") << darkPalette();
    QTest::newRow("white") << QPalette(Qt::white);
    QTest::newRow("black") << QPalette(Qt::black);
    QTest::newRow("middle gray") << QPalette(QColor(118, 118, 118));
}

void tst_ThemeStyle::edgesStandOut()
{
    QFETCH(QPalette, palette);
    const QColor base = palette.color(QPalette::Base);
    const QColor window = palette.color(QPalette::Window);
    const QColor edge = edgeColor(base, window, palette.color(QPalette::Text));
    const double best = std::min(contrast(palette.color(QPalette::Text), base),
                                 contrast(palette.color(QPalette::Text), window));
    QVERIFY(std::min(contrast(edge, base), contrast(edge, window)) >= std::min(3.0, best));
}

void tst_ThemeStyle::plainFieldsHaveAnEdge_data()
{
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

void tst_ThemeStyle::plainFieldsHaveAnEdge()
{
    QFETCH(bool, dark);
    QApplication::setPalette(dark ? darkPalette() : lightPalette());
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    const QList<QWidget *> fields{new QLineEdit(&window), new QSpinBox(&window),
                                  new QDoubleSpinBox(&window)};
    // Whatever has the focus has an edge of another colour.
    auto *focused = new QCheckBox(&window);
    column->addWidget(focused);
    for (QWidget *field : fields)
        column->addWidget(field);
    window.resize(200, 160);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    focused->setFocus();
    for (const QWidget *field : fields)
        QVERIFY2(weakestEdge(field) >= 3.0, field->metaObject()->className());
}

void tst_ThemeStyle::theLibrarysFieldsHaveAnEdge_data()
{
    plainFieldsHaveAnEdge_data();
}

void tst_ThemeStyle::theLibrarysFieldsHaveAnEdge()
{
    QFETCH(bool, dark);
    TestStore store;
    QApplication::setPalette(dark ? darkPalette() : lightPalette());
    VTObjects::VOColorSchemeGroup group = makeGroup("Mine", {"one"});
    VTColorSchemeEditor editor(0, &group, false, nullptr);
    VTColorMenu colors(nullptr);
    VTAddColorSchemeGroupDialog naming("New", nullptr);
    int measured = 0;
    for (QWidget *window : QList<QWidget *>{&editor, &colors, &naming}) {
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QList<QWidget *> fields;
        for (QLineEdit *edit : window->findChildren<QLineEdit *>()) {
            if (!qobject_cast<QAbstractSpinBox *>(edit->parentWidget()))
                fields.append(edit);
        }
        for (QSpinBox *box : window->findChildren<QSpinBox *>())
            fields.append(box);
        for (QWidget *field : fields) {
            if (!field->isVisible())
                continue;
            field->clearFocus();
            ++measured;
            QVERIFY2(weakestEdge(field) >= 3.0, qPrintable(window->metaObject()->className() +
                                                           QString(" ") + field->objectName()));
        }
        window->hide();
    }
    QVERIFY(measured >= 5);
}

VT_TEST_MAIN(tst_ThemeStyle)
#include "tst_ThemeStyle.moc"
