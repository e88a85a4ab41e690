// What the layout knows of the screen, in points.
#pragma once

namespace gexlo {

struct ScreenFacts {
    /// Of the bar at the top and of what drops over it.
    static constexpr float kTopMenuHeight = 44;

    float statusBarHeight = 0;
    float screenHeight = 0;
    float screenWidth = 0;
    float bottomViewHeight = 0;
    float contentFullHeight = 0;   ///< between the top menu and the bottom menu
    float contentSmallHeight = 0;  ///< what an open panel at the foot leaves of it
    bool isTallerScreen = false;

    // The rectangle of schedule panels.
    float scheduleBaseViewWidth = 0;
    float scheduleBaseViewHeight = 0;
    float scheduleBaseViewTopMargin = 0;
    float scheduleBaseViewLeftMargin = 0;
};

/// From the width and height that the status bar leaves, and its own height.
ScreenFacts screenFacts(float width, float height, float statusBarHeight);

}  // namespace gexlo
