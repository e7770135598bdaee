#include "tests/fuzz/fuzzReaders.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzzTeamFile(std::string_view(reinterpret_cast<const char *>(data), size));
    return 0;
}
