#pragma once

#include "tests/support/TestStore.h"

#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorSchemeManager.h"

#include <QObject>
#include <QWidget>

#include <memory>

/// What the tests of the drop-down share: a picker in a shown window, and a store for each with a
/// few groups in the custom and the favorite team.
class SchemeMenuTest : public QObject
{
    Q_OBJECT

protected:
    void setUp();
    void tearDown();
    /// "scheme 0" and so on.
    static QStringList numbered(int count);
    /// The left button.
    static void press(QWidget *widget, const QPoint &position);
    static void release(QWidget *widget, const QPoint &position);

    std::unique_ptr<TestStore> store;
    std::unique_ptr<QWidget> host;
    VTColorSchemeComboBox *picker = nullptr;
    VTObjects::VOColorSchemeManager *records = nullptr;
};
