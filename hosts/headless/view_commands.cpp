// Looking at the views and touching them.
#include <cmath>

#include "hosts/headless/driver_command.h"
#include "hosts/headless/driver_context.h"
#include "hosts/headless/json_views.h"
#include "hosts/headless/view_search.h"
#include "platform/views/scroll_view.h"

namespace gexlo {

using nlohmann::json;

namespace {

/// Beyond it no view can lie.
constexpr double kFarthest = 1e9;

/// Where a touch goes, and what it was meant for, null for a bare point.
struct Target {
    CGPoint point;
    const UIView* view = nullptr;
};

double coordinate(const json& fields, const char* name) {
    const double value = numberField(fields, name);
    if (!(std::abs(value) <= kFarthest)) {
        throw CommandError("\"" + std::string(name) + "\" is no place on a screen");
    }
    return value;
}

Target targetOf(const DriverContext& context, const json& fields) {
    if (fields.contains("x") || fields.contains("y")) {
        return {{coordinate(fields, "x"), coordinate(fields, "y")}};
    }
    ViewSearch search(context, fields);
    // In a row that no finger could scroll to, nothing is touched.
    if (!search.bringIntoSight()) return {{-kFarthest, -kFarthest}, &search.theView()};
    const UIView& view = search.theView();
    return {isVisible(view) ? view.visibleRect().center() : view.frameInWindow().center(), &view};
}

/// The identifier of the view that was meant if it was reached, else of the nearest that bears
/// one; null where nothing was reached.
json hitOf(const UIView* hit, const Target& target) {
    if (!hit) return nullptr;
    if (target.view && hit->isDescendantOf(*target.view) &&
        !target.view->accessibilityIdentifier().empty()) {
        return target.view->accessibilityIdentifier();
    }
    for (; hit; hit = hit->superview()) {
        if (!hit->accessibilityIdentifier().empty()) return hit->accessibilityIdentifier();
    }
    return nullptr;
}

json tree(const DriverContext& context, const json& fields) {
    const bool all = flagField(fields, "all", false);
    return {{"tree", jsonFromTree(context.window(), all)}};
}

json find(const DriverContext& context, const json& fields) {
    json views = json::array();
    const bool all = flagField(fields, "all", false);
    for (UIView* view : ViewSearch(context, fields).views(all))
        views.push_back(jsonFromView(*view));
    return {{"views", std::move(views)}};
}

json tap(const DriverContext& context, const json& fields) {
    const Target target = targetOf(context, fields);
    json hit;
    UIWindow& window = context.window();
    context.device.perform([&] {
        hit = hitOf(window.touchDown(target.point).get(), target);
        window.touchUp(target.point);
    });
    return {{"hit", hit}};
}

json touch(const DriverContext& context, const json& fields) {
    const std::string phase = textField(fields, "phase");
    UIWindow& window = context.window();
    json hit;
    if (phase == "down" || phase == "up") {
        const Target target = targetOf(context, fields);
        context.device.perform([&] {
            const auto view =
                phase == "down" ? window.touchDown(target.point) : window.touchUp(target.point);
            hit = hitOf(view.get(), target);
        });
    } else if (phase == "cancel") {
        context.device.perform([&] { window.touchCancel(); });
    } else {
        throw CommandError("\"phase\" is none of down, up and cancel");
    }
    return {{"hit", hit}};
}

json scroll(const DriverContext& context, const json& fields) {
    const CGPoint offset{coordinate(fields, "x"), coordinate(fields, "y")};
    ViewSearch search(context, fields);
    search.theViewOf<UIScrollView>("does not scroll");
    search.bringWithinReach();
    auto& view = search.theViewOf<UIScrollView>("does not scroll");
    context.device.perform([&] { view.dragTo(offset); });
    return {{"contentOffset", {view.contentOffset().x, view.contentOffset().y}}};
}

json screenshot(const DriverContext& context, const json& fields) {
    const std::string path = textField(fields, "path");
    if (!context.host.takeScreenshot) throw CommandError("the screen is not painted here");
    context.host.takeScreenshot(context, path);
    return nothing();
}

}  // namespace

std::span<const DriverCommand> viewCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"tree", tree},   {"find", find},     {"tap", tap},
        {"touch", touch}, {"scroll", scroll}, {"screenshot", screenshot},
    };
    return kCommands;
}

}  // namespace gexlo
