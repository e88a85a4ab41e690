// Brings slots of the grid out from under the panel at the foot.
#pragma once

#include <memory>
#include <vector>

namespace gexlo {

class GXCellView;

/// Where none of the slots on the page can be seen whole, scrolls the grid up or down until the
/// first of them, in reading order, can. Only once the panel has made room for it.
void revealFirstSlot(const std::vector<std::shared_ptr<GXCellView>>& cells);

}  // namespace gexlo
