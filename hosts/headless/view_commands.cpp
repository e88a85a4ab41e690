// Looking at the views and touching them.
#include <cmath>

#include "hosts/headless/driver_command.h"
#include "hosts/headless/json_views.h"
#include "hosts/headless/view_search.h"
#include "platform/foundation/device.h"
#include "platform/views/scroll_view.h"
#include "platform/views/window.h"

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

Target targetOf(const json& fields) {
    if (fields.contains("x") || fields.contains("y")) {
        return {{coordinate(fields, "x"), coordinate(fields, "y")}};
    }
    const UIView& view = theView(fields);
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

json tree(const json& fields) {
    const bool all = flagField(fields, "all", false);
    return {{"tree", jsonFromTree(UIWindow::keyWindow(), all)}};
}

json find(const json& fields) {
    json views = json::array();
    for (UIView* view : matchingViews(fields, flagField(fields, "all", false)))
        views.push_back(jsonFromView(*view));
    return {{"views", std::move(views)}};
}

json tap(const json& fields) {
    const Target target = targetOf(fields);
    json hit;
    Device::current().perform([&] {
        UIWindow& window = UIWindow::keyWindow();
        hit = hitOf(window.touchDown(target.point).get(), target);
        window.touchUp(target.point);
    });
    return {{"hit", hit}};
}

json touch(const json& fields) {
    const std::string phase = textField(fields, "phase");
    UIWindow& window = UIWindow::keyWindow();
    json hit;
    if (phase == "down" || phase == "up") {
        const Target target = targetOf(fields);
        Device::current().perform([&] {
            const auto view =
                phase == "down" ? window.touchDown(target.point) : window.touchUp(target.point);
            hit = hitOf(view.get(), target);
        });
    } else if (phase == "cancel") {
        Device::current().perform([&] { window.touchCancel(); });
    } else {
        throw CommandError("\"phase\" is none of down, up and cancel");
    }
    return {{"hit", hit}};
}

json scroll(const json& fields) {
    const CGPoint offset{coordinate(fields, "x"), coordinate(fields, "y")};
    UIScrollView& view = theViewOf<UIScrollView>(fields);
    if (!UIWindow::keyWindow().canReach(view)) throw CommandError("that view cannot be reached");
    Device::current().perform([&] { view.dragTo(offset); });
    return {{"contentOffset", {view.contentOffset().x, view.contentOffset().y}}};
}

}  // namespace

std::span<const DriverCommand> viewCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"tree", tree}, {"find", find}, {"tap", tap}, {"touch", touch}, {"scroll", scroll},
    };
    return kCommands;
}

}  // namespace gexlo
