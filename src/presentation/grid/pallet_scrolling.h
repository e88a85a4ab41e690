// Where the grid scrolls to when the week changes or a panel opens and closes at its foot.
#pragma once

#include "presentation/grid/geometry.h"

namespace gexlo {

/// Height in points that an open panel at the foot takes.
int bottomPanelHeight();

/// The week that an offset of the main scroll view shows: 0 or 1.
int weekAtOffset(const GridGeometry& grid, CGPoint offset);
/// Where the page of a week begins.
CGPoint pageOffset(const GridGeometry& grid, NSInteger week);

/// Height of the main content, with days on the left, while a panel is open.
double mainHeightWithPanel(const GridGeometry& grid);

/// With days on the left and more than three of them: the vertical offset of the main scroll
/// view after a panel has closed at offset `y`.
double offsetAfterPanel(const GridGeometry& grid, float contentSmallHeight, double y);

/// The vertical offset that brings a tapped block of a week above the panel, of the sub scroll
/// view with days on top, else of the main one. `positionY` is the block's centre in its grid.
double offsetForBlock(const GridGeometry& grid, float contentSmallHeight, int week, int positionY);

}  // namespace gexlo
