#pragma once

namespace vtcontrolcolorscheme {

/// Lets assistive tools see the parts of the drop-down and of the group chooser: the toolkit's
/// view of a menu holds only its actions, of which these have none. Calling it again does nothing.
void installPickerAccessibility();

} // namespace vtcontrolcolorscheme
