// Prints every field of the store in the folder that is its only argument.
#include "tests/support/SchemeSamples.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <cstdio>

using namespace VTObjects;

int main(int argc, char *argv[])
{
    if (argc != 2)
        return 2;
    VOColorSchemeManager::setStoreDirectory(toVOString(QString::fromLocal8Bit(argv[1])));
    VOColorSchemeManager *records = VOColorSchemeManager::instance();
    if (!records->load())
        return 1;
    const QByteArray text =
        dump(records->defaultTeam) + dump(records->customTeam) + dump(records->favoriteTeam);
    const std::size_t size = static_cast<std::size_t>(text.size());
    return std::fwrite(text.constData(), 1, size, stdout) == size ? 0 : 1;
}
