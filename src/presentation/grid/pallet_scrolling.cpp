#include "presentation/grid/pallet_scrolling.h"

#include <algorithm>

#include "presentation/default_values.h"

namespace gexlo {

namespace {

/// An upper limit below the lower one gives way, as on a grid that is smaller than its page.
int limited(int target, int lower, int upper) {
    return std::max(std::min(target, upper), lower);
}

int half(float height) {
    return static_cast<int>(height * 0.5F);
}

}  // namespace

int bottomPanelHeight() {
    return DefaultValues::shared().CLASS_INFO_VIEW_HEIGHT;
}

int weekAtOffset(const GridGeometry& grid, CGPoint offset) {
    // Does not follow the screen's width.
    constexpr double secondPageFrom = 160;
    if (grid.daysOnLeft) return offset.y >= grid.contentFullHeight * 0.5 ? 1 : 0;
    return offset.x >= secondPageFrom ? 1 : 0;
}

CGPoint pageOffset(const GridGeometry& grid, NSInteger week) {
    if (week == 0) return {};
    return grid.daysOnLeft ? CGPoint{0, grid.pageHeight()}
                           : CGPoint{static_cast<double>(grid.screenWidth) + 5, 0};
}

double mainHeightWithPanel(const GridGeometry& grid) {
    return grid.mainContentSize().height + bottomPanelHeight();
}

double offsetAfterPanel(const GridGeometry& grid, float contentSmallHeight, double y) {
    const double table = grid.tableHeight;
    return y < table - half(contentSmallHeight) ? table - grid.pageHeight() + 5 : grid.pageHeight();
}

double offsetForBlock(const GridGeometry& grid, float contentSmallHeight, int week, int positionY) {
    const auto small = static_cast<int>(contentSmallHeight);
    const int top = grid.topAxisHeight;
    const int table = grid.tableHeight;
    if (!grid.daysOnLeft) {
        const float visible = contentSmallHeight - static_cast<float>(top);
        return limited(positionY - half(visible), 0, table - static_cast<int>(visible));
    }
    const auto page = static_cast<int>(grid.pageHeight());
    const int middle = half(contentSmallHeight);
    if (grid.weeksShareAPage()) {
        if (week == 0) return 0;
        return std::min(page - table - middle + positionY + top, page - small - 5);
    }
    if (week == 0) return limited(positionY - middle + top, 0, table - small);
    const int base = std::max(page, table + 5);
    return limited(base - middle + positionY + top, base, table - small + base);
}

}  // namespace gexlo
