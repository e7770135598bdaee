#include "tests/support/RenamingTest.h"

#include "vomap/VOColorSchemeManager.h"

#include <QLabel>
#include <QLineEdit>
#include <QtTest>

using VTObjects::VOColorSchemeManager;

void RenamingTest::setUp()
{
    store = std::make_unique<TestStore>();
    auto &groups = VOColorSchemeManager::instance()->customTeam.groups;
    groups.push_back(makeGroup("Mine", {"a", "b", "c", "rename_4"}));
    groups.push_back(makeGroup("Other", {"x"}));
    manager = std::make_unique<VTColorSchemeManager>();
    user = std::make_unique<ManagerUser>(*manager);
    manager->show();
    manager->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(manager.get()));
    window = manager->windowHandle();
    user->click(1, 0);
    QCOMPARE(user->names(), (QStringList{"a", "b", "c", "rename_4"}));
}

void RenamingTest::tearDown()
{
    user.reset();
    manager.reset();
    store.reset();
}

QPoint RenamingTest::cell(int row, int column) const
{
    return user->table->visualRect(user->model->index(row, column)).center();
}

void RenamingTest::clickAt(QWidget *widget, const QPoint &place)
{
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, widget->mapTo(manager.get(), place));
}

void RenamingTest::edit(int row, int column)
{
    QTest::mouseDClick(window, Qt::LeftButton, Qt::NoModifier,
                       user->table->viewport()->mapTo(manager.get(), cell(row, column)));
    QTRY_VERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
}

void RenamingTest::type(const QString &text)
{
    for (const QChar &character : text)
        QTest::keyClick(window, character.toLatin1());
}

void RenamingTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window, key, modifiers);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

VTLineEditWidget *RenamingTest::editor() const
{
    auto *widget = user->table->viewport()->findChild<VTLineEditWidget *>();
    return widget && !widget->isHidden() ? widget : nullptr;
}

QString RenamingTest::warning() const
{
    auto *icon = editor()->findChild<QLabel *>(QStringLiteral("label"));
    return icon->isHidden() ? QString() : icon->toolTip();
}
