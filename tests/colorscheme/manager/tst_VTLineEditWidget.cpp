#include "colorscheme/manager/VTLineEditWidget.h"

#include "tests/support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMovie>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class tst_VTLineEditWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theFieldAndItsIconStandSideBySide();
    void aNameGivenBeforehandIsReplacedByNothing();
    void itStartsWithoutWarning();
    void theWarningPlaysAndGivesItsReason();
    void theWarningCanBeHiddenAndShownAgain();
    void typingIsRelayedButSettingTheTextIsNot();
    void returnEndsTheEditing();
    void leavingTheFieldEndsTheEditing();
    void theKeyboardGoesToTheInnerField();
    void itKeepsWhatItsOwnerLeaves();
    void theFileBesideTheProgramWins_data();
    void theFileBesideTheProgramWins();
    void inACopyWithTheEmbeddedOne();
    void inACopyWithoutAnAnimation();
};

namespace {

QLabel *iconOf(const VTLineEditWidget &widget)
{
    return widget.findChild<QLabel *>(QStringLiteral("label"));
}

} // namespace

void tst_VTLineEditWidget::theFieldAndItsIconStandSideBySide()
{
    VTLineEditWidget widget(nullptr);
    QCOMPARE(widget.objectName(), QStringLiteral("VTLineEditWidget"));
    QCOMPARE(widget.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(widget.size(), QSize(264, 20));

    auto *layout = qobject_cast<QHBoxLayout *>(widget.layout());
    QVERIFY(layout);
    QCOMPARE(layout->objectName(), QStringLiteral("horizontalLayout"));
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(layout->count(), 2);

    QLineEdit *field = widget.lineEdit();
    QCOMPARE(layout->itemAt(0)->widget(), field);
    QCOMPARE(field->objectName(), QStringLiteral("lineEdit"));
    QCOMPARE(field->minimumSize(), QSize(0, 20));
    QCOMPARE(field->maximumSize(), QSize(16777215, 23));
    QVERIFY(field->isClearButtonEnabled());

    QLabel *icon = iconOf(widget);
    QVERIFY(icon);
    QCOMPARE(layout->itemAt(1)->widget(), icon);
    QCOMPARE(icon->minimumSize(), QSize(20, 20));
    QCOMPARE(icon->maximumSize(), QSize(20, 20));
    QCOMPARE(icon->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(icon->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QVERIFY(icon->text().isEmpty());
    QVERIFY(icon->testAttribute(Qt::WA_TranslucentBackground));
}

void tst_VTLineEditWidget::aNameGivenBeforehandIsReplacedByNothing()
{
    QWidget parent;
    auto *widget = new VTLineEditWidget(&parent);
    widget->setObjectName(QStringLiteral("widget_name"));
    QCOMPARE(widget->parentWidget(), &parent);
    QCOMPARE(parent.findChild<VTLineEditWidget *>(QStringLiteral("widget_name")), widget);
}

void tst_VTLineEditWidget::itStartsWithoutWarning()
{
    VTLineEditWidget widget(nullptr);
    QVERIFY(iconOf(widget)->isHidden());
    QVERIFY(iconOf(widget)->movie());
    QCOMPARE(iconOf(widget)->movie()->parent(), iconOf(widget));
    QCOMPARE(iconOf(widget)->movie()->state(), QMovie::NotRunning);
    QCOMPARE(iconOf(widget)->movie()->fileName(),
             QCoreApplication::applicationDirPath() + QStringLiteral("/resources/warning.gif"));
    QVERIFY(!widget.data().isValid());
}

void tst_VTLineEditWidget::theWarningPlaysAndGivesItsReason()
{
    VTLineEditWidget widget(nullptr);
    widget.showWarning(QStringLiteral("The name cannot be empty!"));
    QVERIFY(!iconOf(widget)->isHidden());
    QCOMPARE(iconOf(widget)->toolTip(), QStringLiteral("The name cannot be empty!"));
    QCOMPARE(iconOf(widget)->movie()->state(), QMovie::Running);
    QCOMPARE(iconOf(widget)->movie()->currentPixmap().size(), QSize(20, 20));
    QVERIFY(iconOf(widget)->movie()->frameCount() > 1);
}

void tst_VTLineEditWidget::theWarningCanBeHiddenAndShownAgain()
{
    VTLineEditWidget widget(nullptr);
    widget.showWarning(QStringLiteral("first"));
    widget.showWarning(QStringLiteral("second"));
    QCOMPARE(iconOf(widget)->toolTip(), QStringLiteral("second"));
    widget.hideWarning();
    widget.hideWarning();
    QVERIFY(iconOf(widget)->isHidden());
    QCOMPARE(iconOf(widget)->movie()->state(), QMovie::NotRunning);
    widget.showWarning(QStringLiteral("third"));
    QVERIFY(!iconOf(widget)->isHidden());
    QCOMPARE(iconOf(widget)->movie()->state(), QMovie::Running);
}

void tst_VTLineEditWidget::typingIsRelayedButSettingTheTextIsNot()
{
    VTLineEditWidget widget(nullptr);
    QSignalSpy edited(&widget, &VTLineEditWidget::textEdited);
    widget.lineEdit()->setText(QStringLiteral("set"));
    QCOMPARE(edited.count(), 0);
    QTest::keyClicks(widget.lineEdit(), QStringLiteral("ab"));
    QCOMPARE(edited.count(), 2);
    QCOMPARE(edited.last().first().toString(), QStringLiteral("setab"));
}

void tst_VTLineEditWidget::returnEndsTheEditing()
{
    VTLineEditWidget widget(nullptr);
    QSignalSpy finished(&widget, &VTLineEditWidget::editingFinished);
    QTest::keyClicks(widget.lineEdit(), QStringLiteral("ab"));
    QCOMPARE(finished.count(), 0);
    QTest::keyClick(widget.lineEdit(), Qt::Key_Return);
    QCOMPARE(finished.count(), 1);
}

void tst_VTLineEditWidget::leavingTheFieldEndsTheEditing()
{
    QWidget window;
    auto *widget = new VTLineEditWidget(&window);
    auto *other = new QLineEdit(&window);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    widget->lineEdit()->setFocus();
    QSignalSpy finished(widget, &VTLineEditWidget::editingFinished);
    QTest::keyClicks(widget->lineEdit(), QStringLiteral("ab"));
    QCOMPARE(finished.count(), 0);
    other->setFocus();
    QCOMPARE(finished.count(), 1);
}

void tst_VTLineEditWidget::theKeyboardGoesToTheInnerField()
{
    QWidget window;
    auto *widget = new VTLineEditWidget(&window);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    widget->setFocus();
    QCOMPARE(QApplication::focusWidget(), widget->lineEdit());
    QVERIFY(widget->hasFocus());
}

void tst_VTLineEditWidget::itKeepsWhatItsOwnerLeaves()
{
    VTLineEditWidget widget(nullptr);
    widget.setData(7);
    QCOMPARE(widget.data(), QVariant(7));
    widget.setData(QVariant());
    QVERIFY(!widget.data().isValid());
}

void tst_VTLineEditWidget::theFileBesideTheProgramWins_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("none") << QString();
    QTest::newRow("none, embedded") << QString();
    QTest::newRow("no animation") << QStringLiteral("no animation");
    QTest::newRow("empty") << QStringLiteral("empty");
}

void tst_VTLineEditWidget::theFileBesideTheProgramWins()
{
    QFETCH(QString, file);
    // The animation is looked for beside the program, so a copy of this one has what we put there.
    QTemporaryDir elsewhere;
    const QString copy = elsewhere.filePath(QStringLiteral("tst_copy"));
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), copy));
    if (!file.isEmpty()) {
        QVERIFY(QDir(elsewhere.path()).mkdir(QStringLiteral("resources")));
        QFile animation(elsewhere.filePath(QStringLiteral("resources/warning.gif")));
        QVERIFY(animation.open(QIODevice::WriteOnly));
        animation.write(file == QLatin1String("empty") ? QByteArray() : file.toLatin1());
    }
    QProcess process;
    const bool embedded = QLatin1String(QTest::currentDataTag()) == QLatin1String("none, embedded");
    process.start(copy, {embedded ? QStringLiteral("inACopyWithTheEmbeddedOne")
                                  : QStringLiteral("inACopyWithoutAnAnimation")});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QVERIFY2(process.exitCode() == 0, process.readAllStandardOutput().constData());
}

void tst_VTLineEditWidget::inACopyWithTheEmbeddedOne()
{
    VTLineEditWidget::setEmbeddedWarning(true);
    VTLineEditWidget widget(nullptr);
    const bool isCopy = !QFile::exists(iconOf(widget)->movie()->fileName());
    for (int i = 0; i < 2; ++i) {
        widget.showWarning(QStringLiteral("reason"));
        QVERIFY(!iconOf(widget)->isHidden());
        QCOMPARE(iconOf(widget)->toolTip(), QStringLiteral("reason"));
        // The embedded one stands in; where there is a file, it plays.
        QCOMPARE(iconOf(widget)->movie()->fileName().startsWith(QLatin1Char(':')), isCopy);
        QCOMPARE(iconOf(widget)->movie()->state(), QMovie::Running);
        QCOMPARE(iconOf(widget)->movie()->currentPixmap().size(), QSize(20, 20));
        QVERIFY(iconOf(widget)->movie()->frameCount() > 1);
        widget.hideWarning();
        QVERIFY(iconOf(widget)->isHidden());
        QCOMPARE(iconOf(widget)->movie()->state(), QMovie::NotRunning);
    }
    VTLineEditWidget::setEmbeddedWarning(false);
}

void tst_VTLineEditWidget::inACopyWithoutAnAnimation()
{
    VTLineEditWidget widget(nullptr);
    const bool isCopy = QFileInfo(iconOf(widget)->movie()->fileName()).size() < 20;
    widget.showWarning(QStringLiteral("reason"));
    QVERIFY(!iconOf(widget)->isHidden());
    QCOMPARE(iconOf(widget)->toolTip(), QStringLiteral("reason"));
    QCOMPARE(iconOf(widget)->movie()->currentPixmap().isNull(), isCopy);
    widget.hideWarning();
    QVERIFY(iconOf(widget)->isHidden());
}

VT_TEST_MAIN(tst_VTLineEditWidget)
#include "tst_VTLineEditWidget.moc"
