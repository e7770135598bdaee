#include "tests/support/ManagerAtWork.h"

#include "colorscheme/manager/VTLineEditWidget.h"
#include "tests/support/SchemeSamples.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QAction>
#include <QDirIterator>
#include <QLineEdit>
#include <QMenu>
#include <QProcess>
#include <QToolBar>
#include <QtTest>

using namespace VTObjects;

namespace {

constexpr int numberColumn = 0;
constexpr int nameColumn = 2;

} // namespace

ManagerAtWork::ManagerAtWork()
    : user(manager)
{
    manager.show();
    manager.activateWindow();
    if (!QTest::qWaitForWindowActive(&manager))
        qFatal("the manager does not open");
}

void ManagerAtWork::command(const char *action, const QVector<ModalDriver::Handler> &answers)
{
    ModalDriver driver;
    for (const ModalDriver::Handler &answer : answers)
        driver.next(answer);
    auto *found = manager.findChild<QAction *>(QLatin1String(action));
    QVERIFY(found);
    QWidget *button = manager.findChild<QToolBar *>()->widgetForAction(found);
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void ManagerAtWork::clickCell(int row, int column, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex index = user.model->index(row, column);
    QVERIFY(index.isValid());
    user.table->scrollTo(index);
    QTest::mouseClick(user.table->viewport(), Qt::LeftButton, modifiers,
                      user.table->visualRect(index).center());
}

void ManagerAtWork::select(const QVector<int> &rows)
{
    for (const int row : rows) {
        clickCell(row, numberColumn, row == rows.first() ? Qt::NoModifier : Qt::ControlModifier);
        lastRow = row;
    }
    QCOMPARE(user.table->selectedRowNumbers().size(), rows.size());
}

void ManagerAtWork::chooseInMenu(const QStringList &path)
{
    QMenu *menu = user.contextMenu(lastRow);
    for (const QString &text : path) {
        QVERIFY(menu);
        const QList<QAction *> actions = menu->actions();
        const auto action = std::find_if(actions.cbegin(), actions.cend(), [&](QAction *one) {
            return one->isVisible() && one->text() == text;
        });
        QVERIFY2(action != actions.cend(), qPrintable(text));
        QMenu *next = (*action)->menu();
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                          menu->actionGeometry(*action).center());
        if (next)
            QTRY_VERIFY(next->isVisible());
        menu = next;
    }
    QVERIFY(!menu);
    QTRY_VERIFY(!QApplication::activePopupWidget());
}

void ManagerAtWork::rename(int row, const QString &name)
{
    clickCell(row, nameColumn);
    QTest::mouseDClick(user.table->viewport(), Qt::LeftButton, Qt::NoModifier,
                       user.table->visualRect(user.model->index(row, nameColumn)).center());
    auto *editor = user.table->viewport()->findChild<VTLineEditWidget *>();
    QVERIFY(editor);
    editor->lineEdit()->selectAll();
    QTest::keyClicks(editor->lineEdit(), name);
    QTest::keyClick(editor->lineEdit(), Qt::Key_Return);
    QTRY_VERIFY(!user.table->viewport()->findChild<VTLineEditWidget *>());
}

void ManagerAtWork::finish(QPushButton *button, const QVector<ModalDriver::Handler> &answers)
{
    ModalDriver driver;
    for (const ModalDriver::Handler &answer : answers)
        driver.next(answer);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager.isVisible());
}

ModalDriver::Handler enterName(const QString &name)
{
    return [name](QWidget *dialog) {
        auto *field = dialog->findChild<VTLineEditWidget *>();
        QVERIFY(field);
        field->lineEdit()->selectAll();
        QTest::keyClicks(field->lineEdit(), name);
        pressNamed(QStringLiteral("pushButton_ok"))(dialog);
    };
}

VOColorScheme schemeOf(const QString &name, unsigned int level)
{
    VOColorScheme scheme = makeScheme(name);
    scheme.colorRamp->split(level);
    return scheme;
}

QByteArray dumpOfRecords()
{
    const VOColorSchemeManager *records = VOColorSchemeManager::instance();
    return dumpOfRecords(records->defaultTeam, records->customTeam, records->favoriteTeam);
}

QByteArray dumpOfRecords(const VOColorSchemeTeam &defaults, const VOColorSchemeTeam &customs,
                         const VOColorSchemeTeam &favorites)
{
    return dump(defaults) + dump(customs) + dump(favorites);
}

QByteArray dumpByAnotherProcess(const QString &storeDirectory)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(STORE_READER), {storeDirectory});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        return {};
    return process.readAllStandardOutput();
}

QMap<QString, QByteArray> filesBelow(const QString &folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator entries(folder, QDir::Files | QDir::Hidden | QDir::System,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        if (!file.open(QIODevice::ReadOnly))
            qFatal("cannot read %s", qPrintable(file.fileName()));
        files.insert(QDir(folder).relativeFilePath(file.fileName()), file.readAll());
    }
    return files;
}
