#pragma once

#include "tests/support/ModalDriver.h"
#include "tests/support/TestStore.h"

#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorSchemeManager.h"

#include <QDialog>
#include <QLineEdit>
#include <QObject>
#include <QSignalSpy>

#include <memory>

/// Schemes that are told apart by their number of colours: scheme i has i % 50 + 1.
VTObjects::VOColorSchemeGroup manySchemes(const QString &name, int count);

/// What the tests of the picker in real windows share: a dialog with a picker in it, and a store.
class PickerWindowTest : public QObject
{
    Q_OBJECT

protected:
    void setUp();
    void tearDown();
    /// Clicks on the picker and leaves the drop-down to the handler.
    void open(const ModalDriver::Handler &handler);

    std::unique_ptr<TestStore> store;
    std::unique_ptr<QDialog> dialog;
    std::unique_ptr<QSignalSpy> changed;
    QLineEdit *before = nullptr;
    VTColorSchemeComboBox *picker = nullptr;
    VTObjects::VOColorSchemeManager *records = nullptr;
};
