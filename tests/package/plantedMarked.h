#pragma once

#define PLANTED_EXPORT __attribute__((visibility("default")))

namespace VTObjects {
PLANTED_EXPORT int vtMarked();
} // namespace VTObjects
