#include "hosts/drawing/alert_view.h"

#include <algorithm>
#include <string>

#include "hosts/drawing/qt_text_measure.h"
#include "platform/views/activity_indicator_view.h"
#include "platform/views/button.h"
#include "platform/views/label.h"
#include "platform/views/scroll_view.h"
#include "platform/views/text_input.h"

namespace gexlo {

namespace {

constexpr UIColor kDim = UIColor::colorWithWhite(0, 0.4F);
constexpr UIColor kPanel = UIColor::colorWithWhite(0.97F);
constexpr UIColor kLine = UIColor::colorWithWhite(0.78F);
constexpr UIColor kAction = UIColor::colorWithRed_green_blue(0, 0.48F, 1);
constexpr UIColor kDestructive = UIColor::colorWithRed_green_blue(1, 0.23F, 0.19F);
constexpr UIColor kQuiet = UIColor::colorWithWhite(0.45F);

constexpr double kRadius = 13;
constexpr double kMargin = 16;
constexpr double kFieldHeight = 40;
constexpr double kFieldRadius = 6;
constexpr double kHairline = 0.5;

/// What sets the two kinds apart.
struct Looks {
    float titleSize;
    bool titleBold;
    UIColor textColor;
    float buttonSize;
    double buttonHeight;
};
constexpr Looks kAlertLooks{17, true, UIColor::blackColor(), 17, 44};
constexpr Looks kSheetLooks{13, true, kQuiet, 20, 57};

using Button = UIAlert::Button;

struct Choice {
    const Button* button;
    std::size_t index;
};

std::vector<Choice> choicesOf(const UIAlert& alert) {
    std::vector<Choice> choices;
    for (const Button& button : alert.buttons)
        choices.push_back({&button, choices.size()});
    return choices;
}

/// A part of a panel that grows downwards, and scrolls where it has less room than it takes.
struct Section {
    std::shared_ptr<UIScrollView> view = std::make_shared<UIScrollView>();
    double height = 0;

    void placeAt(double y, double width, double room) {
        view->setContentSize({width, height});
        view->setFrame({0, y, width, std::min(height, room)});
    }
};

/// Texts over fields over buttons.
class Panel {
public:
    Panel(AlertView& made, double width, const Looks& looks)
        : made_(made), view_(std::make_shared<UIView>(CGRect{0, 0, width, 0})), looks_(looks) {
        view_->setBackgroundColor(kPanel);
        view_->setCornerRadius(kRadius);
        view_->setClipsToBounds(true);
        for (const Section* section : {&texts_, &fields_, &buttons_})
            view_->addSubview(section->view);
    }

    void addTexts(const UIAlert& alert) {
        if (alert.isBusy()) addWaiting();
        if (alert.title.empty() && alert.message.empty() && alert.fields.empty()) return;
        texts_.height += kMargin;
        addText(alert.title, {"", looks_.titleSize, looks_.titleBold});
        addText(alert.message, UIFont::systemFontOfSize(13));
        for (const UIAlert::Field& field : alert.fields)
            addField(field);
        (alert.fields.empty() ? texts_ : fields_).height += kMargin;
    }

    /// In one row, or each in its own.
    void addButtons(const std::vector<Choice>& buttons, bool beside) {
        if (buttons.empty()) return;
        const double width =
            beside ? this->width() / static_cast<double>(buttons.size()) : this->width();
        double x = 0;
        double& y = buttons_.height;
        for (const Choice& button : buttons) {
            addLine({x, y, width, kHairline});
            if (x > 0) addLine({x, y, kHairline, looks_.buttonHeight});
            addButton(button, {x, y, width, looks_.buttonHeight});
            (beside ? x : y) += beside ? width : looks_.buttonHeight;
        }
        if (beside) y += looks_.buttonHeight;
    }

    /// The texts give way to the buttons, which leave them half of the room.
    void fitInto(double room) {
        room -= fields_.height;
        const double forButtons = std::max(room / 2, room - texts_.height);
        const double forTexts = room - std::min(buttons_.height, forButtons);
        texts_.placeAt(0, width(), forTexts);
        fields_.placeAt(texts_.view->frame().maxY(), width(), fields_.height);
        buttons_.placeAt(fields_.view->frame().maxY(), width(), forButtons);
    }

    double width() const { return view_->frame().width; }
    double height() const { return buttons_.view->frame().maxY(); }
    std::shared_ptr<UIView> at(CGPoint origin) {
        view_->setFrame({origin.x, origin.y, width(), height()});
        return view_;
    }

private:
    void addText(const std::string& text, const UIFont& font) {
        static constexpr double kHighest = 8000;  // more than anybody reads, and can be painted
        if (text.empty()) return;
        const double inner = width() - 2 * kMargin;
        const double height =
            std::min(kHighest, QtTextMeasure().sizeOfText(text, font, inner).height);
        auto& label = texts_.view->add<UILabel>(CGRect{kMargin, texts_.height, inner, height});
        label.setText(text);
        label.setFont(font);
        label.setTextColor(looks_.textColor);
        label.setTextAlignment(NSTextAlignment::center);
        label.setNumberOfLines(0);
        texts_.height += height + 4;
    }

    void addWaiting() {
        static constexpr double kHeight = 64;
        auto& wheel =
            texts_.view->add<UIActivityIndicatorView>(CGRect{0, texts_.height, width(), kHeight});
        wheel.startAnimating();
        texts_.height += kHeight;
    }

    void addField(const UIAlert::Field& field) {
        auto& view = fields_.view->add<UITextField>(
            CGRect{kMargin, fields_.height + 4, width() - 2 * kMargin, kFieldHeight});
        made_.fields.push_back(&view);
        view.setText(field.text);
        view.setPlaceholder(field.placeholder);
        view.setSecureTextEntry(field.secure);
        view.setBackgroundColor(UIColor::whiteColor());
        view.setBorder(kHairline, kLine);
        view.setCornerRadius(kFieldRadius);
        fields_.height += 4 + kFieldHeight;
    }

    void addButton(const Choice& choice, CGRect frame) {
        const Button& button = *choice.button;
        const bool isDestructive = button.style == Button::Style::destructive;
        auto& view = buttons_.view->add<UIButton>(frame);
        made_.buttons[choice.index] = &view;
        view.setTitle(button.title);
        view.setFont({"", looks_.buttonSize, button.style == Button::Style::cancel});
        view.setTitleColor(isDestructive ? kDestructive : kAction);
    }

    void addLine(CGRect frame) {
        auto& line = buttons_.view->add<UIView>(frame);
        line.setBackgroundColor(kLine);
        line.setUserInteractionEnabled(false);
    }

    AlertView& made_;
    std::shared_ptr<UIView> view_;
    const Looks& looks_;
    Section texts_;
    Section fields_;
    Section buttons_;
};

void addAlert(AlertView& made, const UIAlert& alert, CGSize screen) {
    static constexpr double kWidth = 270;
    Panel panel(made, std::min(kWidth, screen.width - 2 * kMargin), kAlertLooks);
    panel.addTexts(alert);
    panel.addButtons(choicesOf(alert), alert.buttons.size() == 2);
    panel.fitInto(screen.height - 2 * kMargin);
    made.view->addSubview(
        panel.at({(screen.width - panel.width()) / 2, (screen.height - panel.height()) / 2}));
}

/// What cancels stands apart, at the foot.
void addSheet(AlertView& made, const UIAlert& alert, CGSize screen) {
    static constexpr double kGap = 8;
    std::vector<Choice> choices;
    std::vector<Choice> cancels;
    for (const Choice& choice : choicesOf(alert))
        (choice.button->style == Button::Style::cancel ? cancels : choices).push_back(choice);
    Panel above(made, screen.width - 2 * kGap, kSheetLooks);
    above.addTexts(alert);
    above.addButtons(choices, false);
    Panel below(made, above.width(), kSheetLooks);
    below.addButtons(cancels, false);
    below.fitInto(screen.height - 2 * kGap);
    const double footY = screen.height - kGap - below.height();
    const double aboveEnd = footY - (cancels.empty() ? 0 : kGap);
    above.fitInto(aboveEnd - kGap);
    made.view->addSubview(above.at({kGap, aboveEnd - above.height()}));
    made.view->addSubview(below.at({kGap, footY}));
}

}  // namespace

AlertView alertView(const UIAlert& alert, CGSize screen) {
    AlertView made{.view = std::make_shared<UIView>(CGRect{0, 0, screen.width, screen.height}),
                   .buttons = std::vector<UIButton*>(alert.buttons.size()),
                   .fields = {}};
    made.view->setBackgroundColor(kDim);
    if (alert.kind == UIAlert::Kind::sheet) {
        addSheet(made, alert, screen);
    } else {
        addAlert(made, alert, screen);
    }
    return made;
}

}  // namespace gexlo
