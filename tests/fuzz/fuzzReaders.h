#pragma once

#include <cstddef>
#include <string_view>

/// What the fuzzers and the test that replays their corpus do with one input. Each stops the
/// program if a reader breaks its word, over and above what the sanitizers find.

/// A scheme file: what is read is written and read again to the same text.
void fuzzSchemeText(std::string_view input);
/// A team file, as it is and, with its checksums mended, as a writer could have written it.
void fuzzTeamFile(std::string_view input);
