// The grid of a phone that is on: what it draws, and taps on it.
#pragma once

#include <gtest/gtest.h>

#include "app/app_delegate.h"
#include "app/main_view.h"
#include "platform/views/window.h"
#include "presentation/notifications.h"
#include "presentation/ui_manager.h"
#include "support/phone.h"

namespace gexlo::test {

/// The first view of that identifier in another, or null.
inline UIView* find(std::string_view identifier, UIView& in = UIWindow::keyWindow()) {
    UIView* found = in.accessibilityIdentifier() == identifier ? &in : nullptr;
    for (std::size_t i = 0; !found && i < in.subviews().size(); ++i)
        found = find(identifier, *in.subviews()[i]);
    return found;
}
template <typename View = UIView>
View& part(std::string_view identifier, UIView& in = UIWindow::keyWindow()) {
    return dynamic_cast<View&>(*find(identifier, in));
}
inline void tap(const UIView& view) {
    const CGPoint place = view.visibleRect().center();
    UIWindow::keyWindow().touchDown(place);
    UIWindow::keyWindow().touchUp(place);
}
/// To the alert on top.
inline void answer(std::size_t button, const std::vector<std::string>& texts = {}) {
    Device::current().perform([&] { UIWindow::keyWindow().answer(button, texts); });
}
inline void post(const char* name, UserInfo userInfo = {}) {
    NSNotificationCenter::defaultCenter().postNotificationName(name, std::move(userInfo));
}

class Grid : public ::testing::Test {
protected:
    Grid() { relaunch(); }
    void relaunch() {
        phone.relaunch();
        phone.advance(1);  // until the splash has gone
    }
    static GXMainView& mainView() { return *GXAppDelegate::delegate().mainView(); }
    static GXUIManager& manager() { return GXUIManager::manager(); }
    static void redraw() { mainView().setCurrentTimetableFromCoreData(); }
    static void save(const char* name) {
        part<UITextField>("tfName").setText(name);
        manager().saveLesson();
    }
    /// By its row among those shown, from 0.
    static GXCellView& cell(int day, int row, int week = 0) {
        return part<GXCellView>(stringWithFormat("cell_%d_%d_%d", week, day, row));
    }
    /// A day as it is seen: of each cell "-" if it is covered, "." if empty, else name, room and
    /// the rows that it spans, after "#" and "*" for the black and the white mask, "!" for the
    /// shadow and "+" if it is selected; and "|" for the line behind it.
    static std::string drawn(int day, int week = 0) {
        std::string all;
        const GridGeometry& grid = mainView().timetablePallet().geometry();
        for (int row = 0; row < grid.numPeriods; ++row) {
            GXCellView& at = cell(day, row, week);
            for (const auto& [mask, mark] :
                 {std::pair{"blackMask", "#"}, {"whiteMask", "*"}, {"shadowMask", "!"}})
                all += part(mask, at).isHidden() ? "" : mark;
            all += at.state() == GXCellView::State::selected ? "+" : "";
            std::string text =
                part<UILabel>("labelSubject", at).text() + part<UILabel>("labelRoom", at).text();
            if (at.backgroundColor() == UIColor::clearColor()) text += ".";
            if (at.frame().height > grid.cellHeight)
                text += std::to_string(static_cast<int>(at.frame().height + 1) / grid.cellHeight);
            UIView& lines = part("borderView", part(week == 0 ? "timetable1" : "timetable2"));
            const bool hasLine = !lines.viewWithTag(100 * day + row + 1)->isHidden();
            all += (at.isHidden() ? "-" : text) + (hasLine ? "|" : "");
        }
        while (all.ends_with(".|"))
            all.resize(all.size() - 2);
        return all;
    }

    Phone phone;
};

}  // namespace gexlo::test
