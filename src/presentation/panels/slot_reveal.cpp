#include "presentation/panels/slot_reveal.h"

#include <algorithm>
#include <tuple>

#include "platform/views/scroll_view.h"
#include "presentation/default_values.h"
#include "presentation/grid/cell_view.h"
#include "presentation/ui_manager.h"

namespace gexlo {

namespace {

/// The scroll view around a cell by which it moves up and down.
UIScrollView* scrollerOf(const GXCellView& cell) {
    for (UIView* view = cell.superview(); view; view = view->superview()) {
        auto* scroller = dynamic_cast<UIScrollView*>(view);
        if (scroller && scroller->contentSize().height > scroller->frame().height) return scroller;
    }
    return nullptr;
}

/// With days on top the two weeks lie beside each other, and one is on the screen.
bool isOnPage(const GXCellView& cell) {
    const double x = cell.frameInWindow().x;
    return cell.slot().daysOnLeft || (x >= 0 && x < GXUIManager::manager().screenWidth());
}

auto readingOrder(const GXCellView& cell) {
    const CGRect frame = cell.frameInWindow();
    return std::tuple(cell.slot().week, frame.y, frame.x);
}

}  // namespace

void revealFirstSlot(const std::vector<std::shared_ptr<GXCellView>>& cells) {
    std::vector<const GXCellView*> onPage;
    for (const auto& cell : cells)
        if (isOnPage(*cell)) onPage.push_back(cell.get());
    const auto first = std::min_element(
        onPage.begin(), onPage.end(),
        [](const auto* a, const auto* b) { return readingOrder(*a) < readingOrder(*b); });
    UIScrollView* scroller = first == onPage.end() ? nullptr : scrollerOf(**first);
    if (!scroller) return;
    const double top = scroller->frameInWindow().y;
    const ScreenFacts& screen = GXUIManager::manager().screen();
    const double foot = screen.screenHeight - screen.bottomViewHeight;
    const double bottom = foot - DefaultValues::shared().CLASS_INFO_VIEW_HEIGHT;
    const auto isSeen = [&](const auto* cell) {
        const CGRect frame = cell->frameInWindow();
        return frame.y >= top && frame.maxY() <= bottom;
    };
    if (std::any_of(onPage.begin(), onPage.end(), isSeen)) return;
    const CGRect frame = (*first)->frameInWindow();
    // One that is higher than what is left of the grid shows its upper part.
    const double down = std::min(frame.maxY() - bottom, frame.y - top);
    const CGPoint offset = scroller->contentOffset();
    scroller->setContentOffset_animated(
        {offset.x, offset.y + (frame.y < top ? frame.y - top : down)}, true);
}

}  // namespace gexlo
