#include "tests/support/ComboBoxTest.h"

#include "colorscheme/picker/defaultGroupCaptions_p.h"
#include "tests/support/Tagger.h"
#include "tests/support/TestMain.h"
#include "tests/support/toString.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QtTest>

#include <memory>

using vtcontrolcolorscheme::defaultGroupCaptions;

using namespace VTObjects;

Q_DECLARE_METATYPE(QVector<QPointF>)

class tst_VTColorSchemeComboBox : public ComboBoxTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

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
};

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
    auto translator = std::make_unique<Tagger>();
    const auto box = std::make_unique<VTColorSchemeComboBox>();
    const QMap<VOString, QString> captions = defaultGroupCaptions;
    translator.reset();
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
    QCOMPARE(even->getSourceColor(0), rgb_color<float>(196, 69, 57));
    QCOMPARE(even->getSourceColor(1), rgb_color<float>(255, 255, 191));
    QCOMPARE(even->getSourceColor(2), rgb_color<float>(48, 95, 207));
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

VT_TEST_MAIN(tst_VTColorSchemeComboBox)
#include "tst_VTColorSchemeComboBox.moc"
