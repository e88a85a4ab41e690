// The fonts that the system names, as the toolkit finds them.
#pragma once

#include <QFont>

#include "platform/views/font.h"

namespace gexlo {

/// Texts are shaped at this size, whatever theirs is: so a text keeps its width and its line
/// breaks on every screen, and shrinks in proportion.
inline constexpr int kReferenceSize = 100;

/// The typeface at the reference size. The Han characters of the system font are those of the
/// device's language.
QFont typefaceOf(const UIFont& font);

}  // namespace gexlo
