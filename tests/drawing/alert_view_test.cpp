// Alerts and sheets on every screen, with more in them than has room.
#include "hosts/drawing/alert_view.h"

#include <gtest/gtest.h>

#include "hosts/drawing/qt_text_measure.h"
#include "platform/foundation/string_format.h"
#include "platform/views/button.h"
#include "platform/views/label.h"
#include "platform/views/scroll_view.h"
#include "platform/views/text_input.h"
#include "support/phone.h"

namespace gexlo::test {

namespace {

using Style = UIAlert::Button::Style;

constexpr CGSize kScreens[] = {{320, 480}, {375, 667}, {667, 375}, {414, 736}};
constexpr std::pair<const char*, const char*> kLanguages[] = {{"en", "Comparative Jurisprudence "},
                                                              {"ko", "화법과작문 심화국어 "},
                                                              {"ja", "大学入学共通試験対策"},
                                                              {"zh-Hans", "中国社会发展问题"},
                                                              {"zh-Hant", "當代中國社會發展問題"}};

UIAlert filled(UIAlert::Kind kind, const std::string& text, int texts, std::size_t choices,
               std::size_t fields) {
    UIAlert alert;
    alert.kind = kind;
    alert.title = text;
    for (int i = 0; i < texts; ++i)
        alert.message += text;
    alert.buttons.assign(choices, {text});
    alert.buttons.push_back({text, Style::cancel});
    alert.fields.resize(fields);
    return alert;
}

bool isWhole(const UIView& view) {
    return view.visibleRect() == view.frameInWindow();
}

/// Brings a view into sight by its scroll view, if it has to come.
void bringIntoSight(UIView& view) {
    if (isWhole(view)) return;
    if (auto* scroll = dynamic_cast<UIScrollView*>(view.superview())) {
        scroll->dragTo({0, 0});
        scroll->dragTo({0, view.frame().maxY() - scroll->frame().height});
    }
}

void checkReach(UIView& root, UIView& view, bool stays) {
    for (const auto& child : view.subviews())
        checkReach(root, *child, stays);
    const bool isField = dynamic_cast<UITextField*>(&view) != nullptr;
    if (isField || dynamic_cast<UIButton*>(&view)) {
        EXPECT_TRUE(!(isField || stays) || isWhole(view)) << "has no room";
        bringIntoSight(view);
        EXPECT_TRUE(isWhole(view));
        EXPECT_EQ(root.hitTest(view.visibleRect().center()), &view);
    } else if (dynamic_cast<UILabel*>(&view)) {
        bringIntoSight(view);
        EXPECT_EQ(view.visibleRect().maxY(), view.frameInWindow().maxY()) << "no end";
        EXPECT_GE(view.visibleRect().height, std::min(view.frame().height, 50.0));
    }
}

TEST(AlertView, keeps_to_the_screen_and_all_of_it_can_be_reached) {
    Phone phone;
    phone.services.textMeasure = std::make_shared<QtTextMeasure>();
    for (const auto& [language, text] : kLanguages) {
        phone.facts.languages = {language};
        phone.restart();
        for (const CGSize& screen : kScreens) {
            for (const auto& [texts, choices, fields] : {std::tuple{1, 1U, 0U},
                                                         {300, 1U, 0U},
                                                         {300, 1U, 1U},
                                                         {300, 12U, 0U},
                                                         {1, 12U, 0U},
                                                         {1, 4U, 0U}}) {
                for (const auto kind : {UIAlert::Kind::alert, UIAlert::Kind::sheet}) {
                    SCOPED_TRACE(stringWithFormat("%@ %f: %ld texts, %ld choices", language,
                                                  screen.width, NSInteger{texts},
                                                  static_cast<NSInteger>(choices)));
                    const auto view =
                        alertView(filled(kind, text, texts, choices, fields), screen).view;
                    for (const auto& panel : view->subviews())
                        EXPECT_TRUE(isWhole(*panel)) << panel->frame().height;
                    checkReach(*view, *view, choices == 1);
                    EXPECT_TRUE(isWhole(*view->subviews().back())) << "what cancels a sheet";
                }
            }
        }
    }
}

TEST(AlertView, only_what_destroys_is_red) {
    Phone phone;
    UIAlert alert = filled(UIAlert::Kind::sheet, "Word ", 1, 1, 0);
    alert.buttons.push_back({"Delete", Style::destructive});
    const AlertView shown = alertView(alert, kScreens[0]);
    for (const UIButton* button : shown.buttons)
        EXPECT_EQ(button->titleColor().red > 0.5F, button == shown.buttons.back());
}

}  // namespace

}  // namespace gexlo::test
