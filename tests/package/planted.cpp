#include <QVector>

// What the look at symbols has to find fault with. The toolkit's template is no fault.

#pragma GCC visibility push(default)

bool plantedVariable = false;

int plantedFunction()
{
    return QVector<int>(3).size();
}

// The toolkit's prefix alone does not make a function the toolkit's.
int qPlanted()
{
    return plantedFunction();
}

__attribute__((used)) inline int plantedInline()
{
    return plantedVariable ? 1 : 2;
}

extern "C" int planted_c()
{
    return qPlanted();
}

struct PlantedClass
{
    int member();
};

int PlantedClass::member()
{
    return planted_c();
}

// A namespace is no excuse where it is not ours.
namespace planted {
int inNamespace()
{
    return PlantedClass().member();
}
} // namespace planted

// Fine in an archive; of these two, a shared library may export the one that its header marks.
namespace VTObjects {
int vtMarked()
{
    return planted::inNamespace();
}

int vtInner()
{
    return vtMarked();
}
} // namespace VTObjects

#pragma GCC visibility pop
