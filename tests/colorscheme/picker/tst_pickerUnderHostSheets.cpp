#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "tests/support/DropDown.h"
#include "tests/support/SchemeMenuTest.h"
#include "tests/support/TestMain.h"

#include <QApplication>
#include <QLayout>
#include <QToolTip>
#include <QtTest>

#include <algorithm>
#include <cmath>

using namespace VTObjects;

namespace {

const QString darkSheet = QStringLiteral("QWidget{background-color:#2b2b2b;color:#eee}");
const QString paleSheet =
    QStringLiteral("QWidget{background:#123456;color:#fffbe0;font-size:15pt}");

double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// Between the text of a widget and its ground, of which there is most; from 1 to 21.
double contrastIn(QWidget *widget)
{
    const QImage image = widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    }
    QRgb ground = 0;
    for (auto color = counts.cbegin(); color != counts.cend(); ++color) {
        if (color.value() > counts.value(ground))
            ground = color.key();
    }
    double best = 1;
    for (auto color = counts.cbegin(); color != counts.cend(); ++color) {
        const double one = luminance(ground) + 0.05;
        const double other = luminance(color.key()) + 0.05;
        if (color.value() >= 3)
            best = std::max(best, std::max(one, other) / std::min(one, other));
    }
    return best;
}

/// The color beside the text.
QColor groundOf(QWidget *widget)
{
    const QImage image = widget->grab().toImage();
    return image.pixelColor(image.width() - 3, 3);
}

} // namespace

/// What is to be read in the picker's popups, under style sheets that a host has for its own
/// widgets.
class tst_pickerUnderHostSheets : public SchemeMenuTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup();

    void namesOfEntriesCanBeRead_data() { sheets(); }
    void namesOfEntriesCanBeRead();
    void groupsCanBeRead_data() { sheets(); }
    void groupsCanBeRead();
    void cutNameIsToldInFull_data() { sheets(); }
    void cutNameIsToldInFull();

private:
    static void sheets();
    void dress();
};

void tst_pickerUnderHostSheets::cleanup()
{
    qApp->setStyleSheet(QString());
    tearDown();
}

void tst_pickerUnderHostSheets::sheets()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<bool>("ofAll"); // or of the host's window alone
    QTest::newRow("none") << QString() << true;
    QTest::newRow("dark") << darkSheet << true;
    QTest::newRow("dark window") << darkSheet << false;
    QTest::newRow("pale and large") << paleSheet << true;
    QTest::newRow("pale and large window") << paleSheet << false;
}

void tst_pickerUnderHostSheets::dress()
{
    QFETCH(QString, sheet);
    QFETCH(bool, ofAll);
    if (ofAll)
        qApp->setStyleSheet(sheet);
    else
        host->setStyleSheet(sheet);
    picker->setDefaultGroup(QStringLiteral("Custom"), QStringLiteral("Mine"), -1);
}

void tst_pickerUnderHostSheets::namesOfEntriesCanBeRead()
{
    dress();
    VTColorSchemeMenu menu(QStringLiteral("Mine"), records->customTeam.groups[0], picker);
    menu.popup(QPoint(300, 20));
    const DropDown parts(&menu);
    for (int visit = 0; visit < 2; ++visit) { // as it opens, and after a visit
        QCOMPARE(groundOf(parts.name(0)), QColor(Qt::white));
        QVERIFY(contrastIn(parts.name(0)) > 7);
        parts.entry(0)->setHighlighted(true);
        QCOMPARE(groundOf(parts.name(0)), QColor(51, 153, 255));
        QVERIFY(contrastIn(parts.name(0)) > 4.5);
        parts.entry(0)->setHighlighted(false);
    }
    QVERIFY(contrastIn(parts.bar) > 4.5);
    QVERIFY(contrastIn(parts.userDefine) > 4.5);
    QTest::keyClick(&menu, Qt::Key_O);
    auto *const letters = qobject_cast<QLabel *>(menu.layout()->itemAt(2)->widget());
    QVERIFY(letters);
    QVERIFY(contrastIn(letters) > 4.5);
    menu.close();
}

void tst_pickerUnderHostSheets::groupsCanBeRead()
{
    dress();
    VTColorSchemeMenu menu(QStringLiteral("Mine"), records->customTeam.groups[0], picker);
    VTColorSchemeGroupMenu chooser(DropDown(&menu).bar);
    chooser.popup(QPoint(300, 20));
    for (QLabel *label : chooser.findChildren<QLabel *>())
        QVERIFY2(contrastIn(label) > 4.5, qPrintable(label->text()));
    for (QPushButton *group : chooser.findChildren<QPushButton *>()) {
        QCOMPARE(groundOf(group), QColor(240, 240, 240));
        QVERIFY2(contrastIn(group) > 7, qPrintable(group->text()));
    }
    QTest::keyClick(&chooser, Qt::Key_Down);
    QPushButton *const first = groupOf(&chooser, QStringLiteral("Best"));
    QCOMPARE(groundOf(first), QColor(51, 153, 255));
    QVERIFY(contrastIn(first) > 4.5);
    chooser.close();
}

void tst_pickerUnderHostSheets::cutNameIsToldInFull()
{
    // Given a name that just has room, but for a larger font
    QString name;
    while (QFontMetrics(QApplication::font("QLabel")).horizontalAdvance(name) < 120)
        name.append(QLatin1Char('n'));
    records->customTeam.groups[0] = makeGroup(QStringLiteral("Mine"), {name});
    dress();
    VTColorSchemeMenu menu(QStringLiteral("Mine"), records->customTeam.groups[0], picker);
    menu.popup(QPoint(300, 20));
    const DropDown parts(&menu);
    QLabel *const label = parts.name(0);
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), label->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(label, &help);
    QFETCH(QString, sheet);
    QCOMPARE(QToolTip::text().contains(name), sheet == paleSheet);
    QToolTip::hideText();
    menu.close();
}

VT_TEST_MAIN(tst_pickerUnderHostSheets)
#include "tst_pickerUnderHostSheets.moc"
