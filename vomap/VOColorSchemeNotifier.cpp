#include "vomap/VOColorSchemeNotifier.h"

namespace VTObjects {

VOColorSchemeNotifier::VOColorSchemeNotifier() = default;

VOColorSchemeNotifier::~VOColorSchemeNotifier() = default;

VOColorSchemeNotifier *VOColorSchemeNotifier::instance()
{
    static VOColorSchemeNotifier notifier;
    return &notifier;
}

} // namespace VTObjects
