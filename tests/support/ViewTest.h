#pragma once

#include "tests/support/TestStore.h"

#include "colorscheme/manager/VTColorSchemeView.h"

#include <QObject>

#include <memory>

/// What the tests of the scheme table share: a store for each, and a table without a manager.
class ViewTest : public QObject
{
    Q_OBJECT

protected:
    void setUp();
    void tearDown();

    std::unique_ptr<TestStore> store;
    std::unique_ptr<VTColorSchemeView> view;
};
