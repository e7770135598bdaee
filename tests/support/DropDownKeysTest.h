#pragma once

#include "tests/support/ModalDriver.h"
#include "tests/support/TestStore.h"

#include "colorscheme/picker/VTColorSchemeComboBox.h"

#include <QLineEdit>
#include <QObject>
#include <QStringList>
#include <QWidget>

#include <memory>

/// What the tests of the drop-down's keys share: a picker in a shown window, with a field before
/// it, and a group of schemes "Blues", "Blue to red", "Greens", "Grays", "Reds", none of them
/// picked.
class DropDownKeysTest : public QObject
{
    Q_OBJECT

protected:
    void setUp();
    void tearDown();
    /// Opens the drop-down by key and leaves it to the handler.
    void open(const ModalDriver::Handler &handler);
    /// Puts schemes of these names into the picker's group.
    void listSchemes(const QStringList &names);

    std::unique_ptr<TestStore> store;
    std::unique_ptr<QWidget> host;
    QLineEdit *before = nullptr;
    VTColorSchemeComboBox *picker = nullptr;

private:
    int inputInterval = 0;
};
