// What each kind of view paints between its background and the views upon it.
#pragma once

#include "hosts/drawing/canvas.h"

namespace gexlo {

/// Draws the view's own content into its frame on the screen.
using ViewContents = void (*)(Canvas& canvas, const UIView& view, const CGRect& frame);

/// Null for a view that has nothing of its own.
ViewContents contentsOf(const UIView& view);

}  // namespace gexlo
