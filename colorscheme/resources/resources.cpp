#include <QtGlobal>

// Not in a namespace and not in a block with C linkage: the macro declares a function of its own.
static int initializeResources()
{
    Q_INIT_RESOURCE(VTControlColorScheme);
    return 1;
}

// A static archive gives a program only the objects that it asks for, and nobody asks for embedded
// files. The build lets every program that links the archive ask for this symbol, so that the icons
// are there without a call.
extern "C" {
extern const int VTControlColorScheme_resources;
}
const int VTControlColorScheme_resources = initializeResources();
