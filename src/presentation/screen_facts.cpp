#include "presentation/screen_facts.h"

#include "presentation/default_values.h"

namespace gexlo {

namespace {

constexpr float kTallFrom = 500;
constexpr float kWideFrom = 380;
constexpr float kTallestFrom = 812;  // such screens have a bar of their own at the foot

void setScheduleRectangle(ScreenFacts& facts) {
    const bool wide = facts.isTallerScreen && facts.screenWidth > kWideFrom;
    facts.scheduleBaseViewWidth = wide ? 340 : facts.screenWidth - 40;
    facts.scheduleBaseViewLeftMargin = wide ? (facts.screenWidth - 340) / 2 : 20;
    float top = facts.isTallerScreen ? 20 : 5;
    if (wide) top = 1.6F * facts.scheduleBaseViewLeftMargin;
    facts.scheduleBaseViewTopMargin = top;
    facts.scheduleBaseViewHeight = facts.contentSmallHeight - 2 * top;
}

}  // namespace

ScreenFacts screenFacts(float width, float height, float statusBarHeight) {
    ScreenFacts facts;
    facts.statusBarHeight = statusBarHeight;
    facts.screenHeight = height + statusBarHeight;
    facts.screenWidth = width;
    facts.bottomViewHeight = facts.screenHeight >= kTallestFrom ? 79 : 55;
    facts.contentFullHeight =
        facts.screenHeight - ScreenFacts::kTopMenuHeight - facts.bottomViewHeight - statusBarHeight;
    facts.contentSmallHeight = facts.contentFullHeight -
                               static_cast<float>(DefaultValues::shared().CLASS_INFO_VIEW_HEIGHT);
    facts.isTallerScreen = facts.screenHeight > kTallFrom;
    setScheduleRectangle(facts);
    return facts;
}

}  // namespace gexlo
