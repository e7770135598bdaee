#include "colorscheme/picker/VTColorSchemeComboBox.h"

#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "colorscheme/picker/defaultGroupCaptions_p.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QTranslator>
#include <QtTest>

#include <climits>
#include <memory>

using vtcontrolcolorscheme::defaultGroupCaptions;

using namespace VTObjects;

Q_DECLARE_METATYPE(QVector<QPointF>)

namespace {

/// Counts how many of its kind are alive.
class CountedRamp : public VOEvenColorRamp
{
public:
    CountedRamp() { ++alive; }
    CountedRamp(const CountedRamp &other)
        : VOEvenColorRamp(other)
    {
        ++alive;
    }
    CountedRamp &operator=(const CountedRamp &) = delete;
    ~CountedRamp() override { --alive; }
    VOColorRamp *clone() override { return new CountedRamp(*this); }

    static int alive;
};
int CountedRamp::alive = 0;

/// A picker whose protected parts a test may call.
class OpenComboBox : public VTColorSchemeComboBox
{
public:
    using VTColorSchemeComboBox::setScheme;
    using VTColorSchemeComboBox::VTColorSchemeComboBox;

    int paintings = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paintings;
        VTColorSchemeComboBox::paintEvent(event);
    }
};

/// What a picker's face must show, painted from plain numbers onto a button of the same look.
class ReferenceFace : public QToolButton
{
public:
    double separator = 0;
    double bottom = 0;
    QVector<QPointF> arrow;
    QRectF target;
    QPixmap strip;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QToolButton::paintEvent(event);
        QPainter painter(this);
        painter.drawLine(QPointF(separator, 5), QPointF(separator, bottom));
        painter.setBrush(QBrush(Qt::black, Qt::SolidPattern));
        painter.drawPolygon(arrow.constData(), arrow.size(), Qt::OddEvenFill);
        painter.setPen(Qt::white);
        painter.drawLine(QPointF(separator - 1, 5), QPointF(separator - 1, bottom));
        if (!strip.isNull())
            painter.drawPixmap(target, strip, QRectF(0, 0, 140, 20));
    }
};

const char *const faceStyle = "QToolButton{border-radius: 2px; min-height:20;border: 1px groove "
                              "gray;border-style: outset;}";

/// The style sheet asks for a height of its own; a layout may give less.
void forceSize(QWidget *widget, QSize size)
{
    widget->ensurePolished();
    widget->setMinimumSize(1, 1);
    widget->resize(size);
}

VOColorScheme solidScheme(const QString &name, const rgb_color<float> &color)
{
    VOColorScheme scheme = makeScheme(name);
    delete scheme.colorRamp;
    scheme.colorRamp = new VOEvenColorRamp;
    scheme.colorRamp->addColor(color);
    return scheme;
}

/// A group of two schemes, red and green; the blue part tells the group.
VOColorSchemeGroup redAndGreen(const QString &name, float blue)
{
    VOColorSchemeGroup group;
    group.name = toVOString(name);
    group.schemes.push_back(
        solidScheme(name + QStringLiteral(" red"), rgb_color<float>(200, 0, blue)));
    group.schemes.push_back(
        solidScheme(name + QStringLiteral(" green"), rgb_color<float>(0, 200, blue)));
    return group;
}

QColor firstColor(VTColorSchemeComboBox &box)
{
    const rgb_color<float> color = box.currentColorRamp()->getColor(0);
    return QColor(int(color.red), int(color.green), int(color.blue));
}

QImage face(VTColorSchemeComboBox &box)
{
    forceSize(&box, QSize(150, 20));
    return box.grab().toImage();
}

/// The middle of the strip in the face.
QColor faceColor(VTColorSchemeComboBox &box)
{
    return face(box).pixelColor(70, 10);
}

/// What the drop-down shows after a click: the caption of the group bar, then the scheme names.
QStringList listed(VTColorSchemeComboBox &box)
{
    QStringList shown;
    ModalDriver driver;
    driver.next([&](QWidget *menu) {
        shown.append(menu->findChild<QToolButton *>()->text());
        const QWidget *const list = menu->findChild<QScrollArea *>()->widget();
        const auto labels = list ? list->findChildren<QLabel *>() : QList<QLabel *>();
        for (const QLabel *label : labels) {
            if (!label->text().isEmpty())
                shown.append(label->text());
        }
        menu->close();
    });
    QTest::mouseClick(&box, Qt::LeftButton);
    return driver.allSeen() ? shown : QStringList(driver.problem());
}

VOColorSchemeManager *store()
{
    return VOColorSchemeManager::instance();
}

} // namespace

class tst_VTColorSchemeComboBox : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aNewPickerHasItsLook();
    void aNewPickerHasNoSchemeAndNoGroup();
    void itHasOneSignalAndOneSlot();
    void everyConstructionSetsTheCaptionsAnew();
    void captionsAreTranslatedInTheGenericContext();
    void anUnknownCaptionIsAddedEmpty();

    void theFirstRampIsTheDefaultOne();
    void theDefaultRampIsNotPainted();
    void setColorRampShowsACloneOfTheRamp();
    void setColorRampFreesTheFormerRamp();
    void setColorRampTakesThePickersOwnRamp();
    void setColorRampIgnoresNull();
    void setSchemeCopiesDeeply();
    void setSchemeWithoutARampEmptiesTheFace();
    void thePickerFreesItsRamp();
    void settersRepaintTheFace();
    void settersAreSilent();

    void aTeamIsChosenByItsName_data();
    void aTeamIsChosenByItsName();
    void aGroupIsChosenByName_data();
    void aGroupIsChosenByName();
    void aGroupIsChosenByIndex_data();
    void aGroupIsChosenByIndex();
    void anEmptyDefaultTeamHasNoStandIn();
    void ofEqualNamesTheFirstGroupIsChosen();
    void aFailureChangesNothing_data();
    void aFailureChangesNothing();
    void theStoreIsNotTouched();
    void laterChangesOfTheStoreDoNotShow();

    void theFaceIsExact_data();
    void theFaceIsExact();
    void theFaceIsExactInEveryState_data();
    void theFaceIsExactInEveryState();
    void theArrowPointsDownAndTheSeparatorIsEtched();

private:
    std::unique_ptr<TestStore> testStore;
};

void tst_VTColorSchemeComboBox::init()
{
    testStore = std::make_unique<TestStore>();
    store()->defaultTeam.groups = {redAndGreen("DEM", 1), redAndGreen("Unique", 2),
                                   redAndGreen("Range", 3), redAndGreen("Graph", 4),
                                   redAndGreen("Even", 5)};
    store()->customTeam.groups = {redAndGreen("Mine", 11), redAndGreen("Yours", 12)};
    store()->favoriteTeam.groups = {redAndGreen("DEM", 21), redAndGreen("Mine", 22)};
}

void tst_VTColorSchemeComboBox::cleanup()
{
    testStore.reset();
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
    QCOMPARE(CountedRamp::alive, 0);
}

void tst_VTColorSchemeComboBox::aNewPickerHasItsLook()
{
    QWidget parent;
    const auto *const box = new VTColorSchemeComboBox(&parent);
    QCOMPARE(box->parentWidget(), &parent);
    QCOMPARE(box->minimumSize(), QSize(150, 20));
    QCOMPARE(box->styleSheet(), QLatin1String(faceStyle));
    const VTColorSchemeComboBox alone;
    QVERIFY(!alone.parentWidget());
}

void tst_VTColorSchemeComboBox::aNewPickerHasNoSchemeAndNoGroup()
{
    VTColorSchemeComboBox box;
    VTColorSchemeComboBox withRamp;
    withRamp.setColorRamp(store()->defaultTeam.groups[0].schemes[0].colorRamp);
    QVERIFY(face(box) != face(withRamp));
    QCOMPARE(listed(box), QStringList(QString()));
}

void tst_VTColorSchemeComboBox::itHasOneSignalAndOneSlot()
{
    const QMetaObject &meta = VTColorSchemeComboBox::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    const QMetaMethod rampChanged = meta.method(meta.methodOffset());
    QCOMPARE(rampChanged.methodSignature(), QByteArray("currentRampChanged()"));
    QCOMPARE(rampChanged.methodType(), QMetaMethod::Signal);
    const QMetaMethod showMenu = meta.method(meta.methodOffset() + 1);
    QCOMPARE(showMenu.methodSignature(), QByteArray("showMenu()"));
    QCOMPARE(showMenu.methodType(), QMetaMethod::Slot);
    QCOMPARE(showMenu.access(), QMetaMethod::Private);
    QVERIFY(meta.inherits(&QToolButton::staticMetaObject));
}

void tst_VTColorSchemeComboBox::everyConstructionSetsTheCaptionsAnew()
{
    // Given captions that somebody changed, and one of a group that the library does not know
    defaultGroupCaptions["DEM"] = QStringLiteral("changed");
    defaultGroupCaptions.remove("Graph");
    defaultGroupCaptions["Another"] = QStringLiteral("kept");
    // When a picker is constructed
    const VTColorSchemeComboBox box;
    // Then the six are as they should be
    QMap<VOString, QString> expected;
    expected["DEM"] = QStringLiteral("For DEM");
    expected["Unique"] = QStringLiteral("For unique");
    expected["Range"] = QStringLiteral("For unique range");
    expected["Graph"] = QStringLiteral("For graph");
    expected["Even"] = QStringLiteral("Even scheme");
    expected["Random"] = QStringLiteral("Random scheme");
    expected["Another"] = QStringLiteral("kept");
    const QMap<VOString, QString> captions = defaultGroupCaptions;
    defaultGroupCaptions.remove("Another");
    QCOMPARE(captions.size(), expected.size());
    for (auto i = expected.cbegin(); i != expected.cend(); ++i)
        QCOMPARE(captions.value(i.key()), i.value());
}

void tst_VTColorSchemeComboBox::captionsAreTranslatedInTheGenericContext()
{
    class Tagger : public QTranslator
    {
    public:
        QString translate(const char *context, const char *text, const char * /*hint*/,
                          int /*n*/) const override
        {
            return QLatin1String(context) + QLatin1Char(':') + QLatin1String(text);
        }
        bool isEmpty() const override { return false; }
    };
    Tagger translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const auto box = std::make_unique<VTColorSchemeComboBox>();
    const QMap<VOString, QString> captions = defaultGroupCaptions;
    QVERIFY(QCoreApplication::removeTranslator(&translator));
    const VTColorSchemeComboBox untranslated;
    QCOMPARE(captions.value("DEM"), QStringLiteral("QObject:For DEM"));
    QCOMPARE(captions.value("Unique"), QStringLiteral("QObject:For unique"));
    QCOMPARE(captions.value("Range"), QStringLiteral("QObject:For unique range"));
    QCOMPARE(captions.value("Graph"), QStringLiteral("QObject:For graph"));
    QCOMPARE(captions.value("Even"), QStringLiteral("QObject:Even scheme"));
    QCOMPARE(captions.value("Random"), QStringLiteral("QObject:Random scheme"));
    QCOMPARE(defaultGroupCaptions.value("DEM"), QStringLiteral("For DEM"));
}

void tst_VTColorSchemeComboBox::anUnknownCaptionIsAddedEmpty()
{
    const VTColorSchemeComboBox box;
    QVERIFY(!defaultGroupCaptions.contains("dem"));
    QCOMPARE(defaultGroupCaptions["dem"], QString());
    QVERIFY(defaultGroupCaptions.contains("dem"));
    defaultGroupCaptions.remove("dem");
}

void tst_VTColorSchemeComboBox::theFirstRampIsTheDefaultOne()
{
    VTColorSchemeComboBox box;
    VOColorRamp *const ramp = box.currentColorRamp();
    QVERIFY(ramp);
    QCOMPARE(ramp->category(), VOColorRamp::EvenRamp);
    QCOMPARE(ramp->getLevel(), 10U);
    auto *const even = dynamic_cast<VOEvenColorRamp *>(ramp);
    QVERIFY(even);
    QCOMPARE(even->getSourceColorCount(), 3U);
    QVERIFY(even->getSourceColor(0) == rgb_color<float>(196, 69, 57));
    QVERIFY(even->getSourceColor(1) == rgb_color<float>(255, 255, 191));
    QVERIFY(even->getSourceColor(2) == rgb_color<float>(48, 95, 207));
    QCOMPARE(box.currentColorRamp(), ramp);
}

void tst_VTColorSchemeComboBox::theDefaultRampIsNotPainted()
{
    VTColorSchemeComboBox box;
    const QImage empty = face(box);
    box.currentColorRamp();
    QCOMPARE(face(box), empty);
}

void tst_VTColorSchemeComboBox::setColorRampShowsACloneOfTheRamp()
{
    VTColorSchemeComboBox box;
    auto ramp = std::make_unique<CountedRamp>();
    ramp->addColor(rgb_color<float>(1, 2, 3));
    box.setColorRamp(ramp.get());
    QVERIFY(box.currentColorRamp() != ramp.get());
    QCOMPARE(CountedRamp::alive, 2);
    // The caller's own goes without harm.
    ramp.reset();
    QCOMPARE(CountedRamp::alive, 1);
    QCOMPARE(firstColor(box), QColor(1, 2, 3));
    QCOMPARE(faceColor(box), QColor(1, 2, 3));
}

void tst_VTColorSchemeComboBox::setColorRampFreesTheFormerRamp()
{
    VTColorSchemeComboBox box;
    CountedRamp ramp;
    ramp.addColor(rgb_color<float>(1, 2, 3));
    box.setColorRamp(&ramp);
    box.setColorRamp(&ramp);
    box.setColorRamp(&ramp);
    QCOMPARE(CountedRamp::alive, 2);
}

void tst_VTColorSchemeComboBox::setColorRampTakesThePickersOwnRamp()
{
    VTColorSchemeComboBox box;
    CountedRamp ramp;
    ramp.addColor(rgb_color<float>(1, 2, 3));
    box.setColorRamp(&ramp);
    box.setColorRamp(box.currentColorRamp());
    QCOMPARE(CountedRamp::alive, 2);
    QCOMPARE(firstColor(box), QColor(1, 2, 3));
    QCOMPARE(faceColor(box), QColor(1, 2, 3));
    // So the default ramp, which the face does not show by itself, comes to be shown.
    VTColorSchemeComboBox fresh;
    fresh.setColorRamp(fresh.currentColorRamp());
    QCOMPARE(fresh.currentColorRamp()->getLevel(), 10U);
    QVERIFY(face(fresh) != face(box));
    QCOMPARE(face(fresh).pixelColor(5, 10), QColor(196, 69, 57));
}

void tst_VTColorSchemeComboBox::setColorRampIgnoresNull()
{
    VTColorSchemeComboBox box;
    CountedRamp ramp;
    ramp.addColor(rgb_color<float>(1, 2, 3));
    box.setColorRamp(&ramp);
    box.setColorRamp(nullptr);
    QCOMPARE(firstColor(box), QColor(1, 2, 3));
    QCOMPARE(faceColor(box), QColor(1, 2, 3));
}

void tst_VTColorSchemeComboBox::setSchemeCopiesDeeply()
{
    OpenComboBox box;
    {
        VOColorScheme scheme = solidScheme(QStringLiteral("brief"), rgb_color<float>(7, 8, 9));
        box.setScheme(scheme);
        QVERIFY(box.currentColorRamp() != scheme.colorRamp);
        scheme.colorRamp->setColor(0, rgb_color<float>(0, 0, 0));
    }
    QCOMPARE(firstColor(box), QColor(7, 8, 9));
    QCOMPARE(faceColor(box), QColor(7, 8, 9));
}

void tst_VTColorSchemeComboBox::setSchemeWithoutARampEmptiesTheFace()
{
    OpenComboBox box;
    const QImage empty = face(box);
    box.setScheme(solidScheme(QStringLiteral("brief"), rgb_color<float>(7, 8, 9)));
    QVERIFY(face(box) != empty);
    box.setScheme(VOColorScheme());
    QCOMPARE(face(box), empty);
    QCOMPARE(box.currentColorRamp()->getLevel(), 10U);
}

void tst_VTColorSchemeComboBox::thePickerFreesItsRamp()
{
    CountedRamp ramp;
    auto box = std::make_unique<VTColorSchemeComboBox>();
    box->setColorRamp(&ramp);
    QCOMPARE(CountedRamp::alive, 2);
    box.reset();
    QCOMPARE(CountedRamp::alive, 1);
}

void tst_VTColorSchemeComboBox::settersRepaintTheFace()
{
    OpenComboBox box;
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    VOColorScheme &scheme = store()->customTeam.groups[0].schemes[0];
    const std::function<void()> setters[] = {
        [&] { box.setColorRamp(scheme.colorRamp); },
        [&] { box.setScheme(scheme); },
        [&] { QVERIFY(box.setDefaultGroup("Custom", "Mine", 1)); },
        [&] { QVERIFY(box.setDefaultGroup("Custom", 1, 0)); },
    };
    for (const auto &setter : setters) {
        QCoreApplication::processEvents();
        const int before = box.paintings;
        setter();
        QTRY_VERIFY(box.paintings > before);
    }
}

void tst_VTColorSchemeComboBox::settersAreSilent()
{
    OpenComboBox box;
    const QSignalSpy rampChanged(&box, &VTColorSchemeComboBox::currentRampChanged);
    QVERIFY(rampChanged.isValid());
    VOColorScheme &scheme = store()->customTeam.groups[0].schemes[0];
    box.currentColorRamp();
    box.setColorRamp(scheme.colorRamp);
    box.setScheme(scheme);
    QVERIFY(box.setDefaultGroup("Default", "DEM", 0));
    QVERIFY(box.setDefaultGroup("Custom", 1, 1));
    QVERIFY(!box.setDefaultGroup("Custom", "none", 1));
    QCOMPARE(rampChanged.size(), 0);
}

void tst_VTColorSchemeComboBox::aTeamIsChosenByItsName_data()
{
    QTest::addColumn<QString>("team");
    QTest::addColumn<int>("blue"); // of the team's first group
    QTest::newRow("Default") << "Default" << 1;
    QTest::newRow("default") << "default" << 1;
    QTest::newRow("DEFAULT") << "DEFAULT" << 1;
    QTest::newRow("Custom") << "Custom" << 11;
    QTest::newRow("cUSTOM") << "cUSTOM" << 11;
    QTest::newRow("Favorite") << "Favorite" << 21;
    QTest::newRow("favorite") << "favorite" << 21;
    QTest::newRow("nothing") << "" << 21;
    QTest::newRow("anything else") << "Defaults" << 21;
    QTest::newRow("a blank behind it") << "Custom " << 21;
}

void tst_VTColorSchemeComboBox::aTeamIsChosenByItsName()
{
    QFETCH(QString, team);
    QFETCH(int, blue);
    VTColorSchemeComboBox byIndex;
    QVERIFY(byIndex.setDefaultGroup(team, 0, 0));
    QCOMPARE(firstColor(byIndex), QColor(200, 0, blue));
    VTColorSchemeComboBox byName;
    QVERIFY(byName.setDefaultGroup(team, blue == 11 ? "Mine" : "DEM", 0));
    QCOMPARE(firstColor(byName), QColor(200, 0, blue));
    // The drop-down takes the same team.
    QCOMPARE(listed(byIndex).last(),
             blue == 11 ? QStringLiteral("Mine green") : QStringLiteral("DEM green"));
    QCOMPARE(listed(byIndex).first(), blue == 1    ? QStringLiteral("For DEM")
                                      : blue == 11 ? QStringLiteral("Mine")
                                                   : QStringLiteral("DEM"));
}

namespace {

void addGroupColumns(bool byName)
{
    QTest::addColumn<QString>("team");
    if (byName)
        QTest::addColumn<QString>("group");
    else
        QTest::addColumn<int>("group");
    QTest::addColumn<int>("schemeIndex");
    QTest::addColumn<QColor>("color"); // of the scheme that is current then
    QTest::addColumn<QString>("firstListed");
}

/// The colour of the scheme that is current before each call.
const QColor former(90, 91, 92);

void setFormer(VTColorSchemeComboBox &box)
{
    VOEvenColorRamp ramp;
    ramp.addColor(rgb_color<float>(90, 91, 92));
    box.setColorRamp(&ramp);
}

} // namespace

void tst_VTColorSchemeComboBox::aGroupIsChosenByName_data()
{
    addGroupColumns(true);
    QTest::newRow("default") << "Default"
                             << "Range" << 1 << QColor(0, 200, 3) << "Range red";
    QTest::newRow("default, an unknown name") << "Default"
                                              << "none" << 0 << QColor(200, 0, 1) << "DEM red";
    QTest::newRow("default, no name") << "Default"
                                      << "" << 1 << QColor(0, 200, 1) << "DEM red";
    QTest::newRow("default, another letter case") << "Default"
                                                  << "range" << 0 << QColor(200, 0, 1) << "DEM red";
    QTest::newRow("custom") << "Custom"
                            << "Yours" << 0 << QColor(200, 0, 12) << "Yours red";
    QTest::newRow("favorites") << "Favorite"
                               << "Mine" << 1 << QColor(0, 200, 22) << "Mine red";
    QTest::newRow("scheme -1") << "Custom"
                               << "Yours" << -1 << former << "Yours red";
    QTest::newRow("the lowest scheme index") << "Custom"
                                             << "Yours" << INT_MIN << former << "Yours red";
    QTest::newRow("one behind the last scheme") << "Custom"
                                                << "Yours" << 2 << former << "Yours red";
    QTest::newRow("unknown default, scheme -1") << "Default"
                                                << "none" << -1 << former << "DEM red";
}

void tst_VTColorSchemeComboBox::aGroupIsChosenByName()
{
    QFETCH(QString, team);
    QFETCH(QString, group);
    QFETCH(int, schemeIndex);
    QFETCH(QColor, color);
    QFETCH(QString, firstListed);
    VTColorSchemeComboBox box;
    setFormer(box);
    QVERIFY(box.setDefaultGroup(team, group, schemeIndex));
    QCOMPARE(firstColor(box), color);
    QCOMPARE(faceColor(box), color);
    QCOMPARE(listed(box).value(1), firstListed);
}

void tst_VTColorSchemeComboBox::aGroupIsChosenByIndex_data()
{
    addGroupColumns(false);
    QTest::newRow("default") << "Default" << 2 << 1 << QColor(0, 200, 3) << "Range red";
    QTest::newRow("default, the last") << "Default" << 4 << 0 << QColor(200, 0, 5) << "Even red";
    QTest::newRow("custom") << "Custom" << 1 << 0 << QColor(200, 0, 12) << "Yours red";
    QTest::newRow("favorites") << "Favorite" << 1 << 1 << QColor(0, 200, 22) << "Mine red";
    QTest::newRow("scheme -1") << "Favorite" << 0 << -1 << former << "DEM red";
    QTest::newRow("one behind the last scheme") << "Default" << 0 << 2 << former << "DEM red";
}

void tst_VTColorSchemeComboBox::aGroupIsChosenByIndex()
{
    QFETCH(QString, team);
    QFETCH(int, group);
    QFETCH(int, schemeIndex);
    QFETCH(QColor, color);
    QFETCH(QString, firstListed);
    VTColorSchemeComboBox box;
    setFormer(box);
    QVERIFY(box.setDefaultGroup(team, group, schemeIndex));
    QCOMPARE(firstColor(box), color);
    QCOMPARE(faceColor(box), color);
    QCOMPARE(listed(box).value(1), firstListed);
}

void tst_VTColorSchemeComboBox::anEmptyDefaultTeamHasNoStandIn()
{
    store()->defaultTeam.groups.clear();
    VTColorSchemeComboBox box;
    QVERIFY(!box.setDefaultGroup("Default", "DEM", 0));
    QVERIFY(!box.setDefaultGroup("Default", 0, 0));
}

void tst_VTColorSchemeComboBox::ofEqualNamesTheFirstGroupIsChosen()
{
    store()->customTeam.groups.push_back(redAndGreen("Mine", 13));
    VTColorSchemeComboBox box;
    QVERIFY(box.setDefaultGroup("Custom", "Mine", 0));
    QCOMPARE(firstColor(box), QColor(200, 0, 11));
}

void tst_VTColorSchemeComboBox::aFailureChangesNothing_data()
{
    QTest::addColumn<QString>("team");
    QTest::addColumn<QVariant>("group");
    QTest::newRow("custom, an unknown name") << "Custom" << QVariant("none");
    QTest::newRow("custom, another letter case") << "Custom" << QVariant("mine");
    QTest::newRow("custom, no name") << "Custom" << QVariant("");
    QTest::newRow("favorites, an unknown name") << "Favorite" << QVariant("Yours");
    QTest::newRow("default, one behind the last") << "Default" << QVariant(5);
    QTest::newRow("default, -1") << "Default" << QVariant(-1);
    QTest::newRow("custom, one behind the last") << "Custom" << QVariant(2);
    QTest::newRow("custom, -1") << "Custom" << QVariant(-1);
    QTest::newRow("favorites, one behind the last") << "Favorite" << QVariant(2);
    QTest::newRow("favorites, the lowest") << "Favorite" << QVariant(INT_MIN);
    QTest::newRow("favorites, the highest") << "Favorite" << QVariant(INT_MAX);
}

void tst_VTColorSchemeComboBox::aFailureChangesNothing()
{
    QFETCH(QString, team);
    QFETCH(QVariant, group);
    // Given a picker of one group with a ramp of its own
    VTColorSchemeComboBox box;
    QVERIFY(box.setDefaultGroup("Default", "Graph", 0));
    setFormer(box);
    const VOColorRamp *const ramp = box.currentColorRamp();
    const QImage before = face(box);
    const QStringList listedBefore = listed(box);
    QCOMPARE(listedBefore, QStringList({"For graph", "Graph red", "Graph green"}));
    // When another one is chosen that is not there
    const bool chosen = group.type() == QVariant::Int
                            ? box.setDefaultGroup(team, group.toInt(), 0)
                            : box.setDefaultGroup(team, group.toString(), 0);
    // Then all is as it was
    QVERIFY(!chosen);
    QCOMPARE(box.currentColorRamp(), ramp);
    QCOMPARE(face(box), before);
    QCOMPARE(listed(box), listedBefore);
}

void tst_VTColorSchemeComboBox::theStoreIsNotTouched()
{
    VTColorSchemeComboBox box;
    const VOColorScheme &scheme = store()->defaultTeam.groups[0].schemes[0];
    const VOColorRamp *const storesRamp = scheme.colorRamp;
    QVERIFY(box.setDefaultGroup("Default", 0, 0));
    QVERIFY(box.currentColorRamp() != storesRamp);
    box.currentColorRamp()->deleteAll();
    setFormer(box);
    QCOMPARE(scheme.colorRamp, storesRamp);
    QCOMPARE(scheme.colorRamp->getLevel(), 1U);
}

void tst_VTColorSchemeComboBox::laterChangesOfTheStoreDoNotShow()
{
    VTColorSchemeComboBox box;
    QVERIFY(box.setDefaultGroup("Custom", 0, 0));
    store()->customTeam.groups.clear();
    QCOMPARE(firstColor(box), QColor(200, 0, 11));
    QCOMPARE(faceColor(box), QColor(200, 0, 11));
    QCOMPARE(listed(box), QStringList(QString()));
}

namespace {

/// A ramp of 13 colours, so that the strip's bands differ in width.
std::unique_ptr<VOEvenColorRamp> manyColored()
{
    auto ramp = std::make_unique<VOEvenColorRamp>();
    for (int i = 0; i < 13; ++i)
        ramp->addColor(rgb_color<float>(float(i * 20), float(250 - i * 10), float(i % 2 * 200)));
    return ramp;
}

void makeReference(ReferenceFace &reference, QSize size, double separator,
                   const QVector<QPointF> &arrow, QSize strip)
{
    reference.setStyleSheet(QLatin1String(faceStyle));
    forceSize(&reference, size);
    reference.separator = separator;
    reference.bottom = size.height() - 5;
    reference.arrow = arrow;
    reference.target = QRectF(QPointF(3, 3), QSizeF(strip));
}

using Points = QVector<QPointF>;

} // namespace

void tst_VTColorSchemeComboBox::theFaceIsExact_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("separator");
    QTest::addColumn<Points>("arrow");
    QTest::addColumn<QSize>("strip"); // its place in the face, from (3, 3)
    QTest::newRow("150 x 20") << QSize(150, 20) << 138.0 << Points{{141, 8}, {147, 8}, {144, 11}}
                              << QSize(134, 15);
    QTest::newRow("40 x 21") << QSize(40, 21) << 32.0 << Points{{32, 8.5}, {39, 8.5}, {35.5, 11.5}}
                             << QSize(28, 16);
    QTest::newRow("40 x 20") << QSize(40, 20) << 32.0 << Points{{33, 8}, {39, 8}, {36, 11}}
                             << QSize(28, 15);
    QTest::newRow("151 x 21") << QSize(151, 21) << 139.0
                              << Points{{141, 8.5}, {148, 8.5}, {144.5, 11.5}} << QSize(135, 16);
    QTest::newRow("59 x 20, a fifth in fractions")
        << QSize(59, 20) << 47.2 << Points{{50.1, 8}, {56.1, 8}, {53.1, 11}} << QSize(43, 15);
    QTest::newRow("58 x 21, a fifth in fractions")
        << QSize(58, 21) << 46.4 << Points{{48.2, 8.5}, {55.2, 8.5}, {51.7, 11.5}} << QSize(42, 16);
    QTest::newRow("60 x 22, just the cap")
        << QSize(60, 22) << 48.0 << Points{{51, 9}, {57, 9}, {54, 12}} << QSize(44, 17);
    QTest::newRow("23 x 20, narrower than the arrow")
        << QSize(23, 20) << 18.4 << Points{{17.7, 8}, {23.7, 8}, {20.7, 11}} << QSize(14, 15);
    QTest::newRow("240 x 30") << QSize(240, 30) << 228.0 << Points{{231, 13}, {237, 13}, {234, 16}}
                              << QSize(224, 25);
    QTest::newRow("241 x 33") << QSize(241, 33) << 229.0
                              << Points{{231, 14.5}, {238, 14.5}, {234.5, 17.5}} << QSize(225, 28);
    QTest::newRow("1000 x 50") << QSize(1000, 50) << 988.0
                               << Points{{991, 23}, {997, 23}, {994, 26}} << QSize(984, 45);
}

void tst_VTColorSchemeComboBox::theFaceIsExact()
{
    QFETCH(QSize, size);
    QFETCH(double, separator);
    QFETCH(Points, arrow);
    QFETCH(QSize, strip);
    const auto ramp = manyColored();
    ReferenceFace reference;
    makeReference(reference, size, separator, arrow, strip);
    VTColorSchemeComboBox box;
    forceSize(&box, size);
    // Without a scheme
    QCOMPARE(box.size(), size);
    QCOMPARE(box.grab().toImage(), reference.grab().toImage());
    // And with one
    box.setColorRamp(ramp.get());
    reference.strip = colorRampPreviewPixmap(ramp.get(), QSize(140, 20));
    QCOMPARE(box.grab().toImage(), reference.grab().toImage());
}

void tst_VTColorSchemeComboBox::theFaceIsExactInEveryState_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("down");
    QTest::addColumn<QColor>("foreground");
    QTest::newRow("disabled") << false << false << QColor(Qt::black);
    QTest::newRow("pressed") << true << true << QColor(Qt::black);
    QTest::newRow("in a theme of light letters") << true << false << QColor(Qt::yellow);
}

void tst_VTColorSchemeComboBox::theFaceIsExactInEveryState()
{
    QFETCH(bool, enabled);
    QFETCH(bool, down);
    QFETCH(QColor, foreground);
    const auto ramp = manyColored();
    ReferenceFace reference;
    makeReference(reference, QSize(150, 20), 138, {{141, 8}, {147, 8}, {144, 11}}, QSize(134, 15));
    reference.strip = colorRampPreviewPixmap(ramp.get(), QSize(140, 20));
    VTColorSchemeComboBox box;
    box.setColorRamp(ramp.get());
    forceSize(&box, QSize(150, 20));
    for (QToolButton *button :
         {static_cast<QToolButton *>(&reference), static_cast<QToolButton *>(&box)}) {
        QPalette theme = button->palette();
        theme.setColor(QPalette::ButtonText, foreground);
        button->setPalette(theme);
        button->setEnabled(enabled);
        button->setDown(down);
    }
    QCOMPARE(box.grab().toImage(), reference.grab().toImage());
}

void tst_VTColorSchemeComboBox::theArrowPointsDownAndTheSeparatorIsEtched()
{
    VTColorSchemeComboBox box;
    const QImage image = face(box);
    const QColor black(Qt::black);
    for (int y = 5; y < 15; ++y) {
        QCOMPARE(image.pixelColor(138, y), black);
        QCOMPARE(image.pixelColor(137, y), QColor(Qt::white));
    }
    QVERIFY(image.pixelColor(138, 4) != black);
    QVERIFY(image.pixelColor(138, 17) != black);
    // The arrow: wide above, its point below, nothing beside it.
    for (int x = 141; x <= 147; ++x)
        QCOMPARE(image.pixelColor(x, 8), black);
    QCOMPARE(image.pixelColor(144, 11), black);
    QVERIFY(image.pixelColor(141, 11) != black);
    QVERIFY(image.pixelColor(147, 11) != black);
    QVERIFY(image.pixelColor(144, 7) != black);
    QVERIFY(image.pixelColor(144, 12) != black);
}

VT_TEST_MAIN(tst_VTColorSchemeComboBox)
#include "tst_VTColorSchemeComboBox.moc"
