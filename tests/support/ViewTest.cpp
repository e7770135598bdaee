#include "tests/support/ViewTest.h"

void ViewTest::setUp()
{
    store = std::make_unique<TestStore>();
    view = std::make_unique<VTColorSchemeView>(nullptr);
}

void ViewTest::tearDown()
{
    view.reset();
    store.reset();
}
