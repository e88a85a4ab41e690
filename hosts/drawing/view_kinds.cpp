#include "hosts/drawing/view_kinds.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "hosts/drawing/qt_values.h"
#include "hosts/drawing/text_layout.h"
#include "platform/views/activity_indicator_view.h"
#include "platform/views/button.h"
#include "platform/views/image_view.h"
#include "platform/views/slider.h"
#include "platform/views/switch.h"
#include "platform/views/table_view.h"
#include "platform/views/text_input.h"

namespace gexlo {

namespace {

constexpr UIColor kPlaceholderColor = UIColor::colorWithWhite(0.78F);
constexpr UIColor kTrackColor = UIColor::colorWithWhite(0.72F);
constexpr UIColor kOnColor = UIColor::colorWithRed_green_blue(0.2F, 0.78F, 0.35F);
constexpr UIColor kOffColor = UIColor::colorWithWhite(0.88F);
constexpr UIColor kAccentColor = UIColor::colorWithRed_green_blue(0, 0.48F, 1);
/// Seen on black as on white.
constexpr UIColor kPressedColor = UIColor::colorWithWhite(0.4F, 0.35F);
constexpr UIColor kDeleteColor = UIColor::colorWithRed_green_blue(1, 0.23F, 0.19F);

CGRect centered(CGSize size, const CGRect& box) {
    const CGPoint center = box.center();
    return {center.x - size.width / 2, center.y - size.height / 2, size.width, size.height};
}

CGRect disc(CGPoint center, double diameter) {
    return centered({diameter, diameter}, {center.x, center.y, 0, 0});
}

void drawLabel(Canvas& canvas, const UILabel& label, const CGRect& frame) {
    if (canvas.isOutside(frame)) return;
    const TextLayout& layout = canvas.layout(label.text(), label.font(),
                                             {.width = frame.width,
                                              .lines = label.numberOfLines(),
                                              .smallestScale = label.minimumScaleFactor(),
                                              .height = frame.height});
    canvas.text(layout, frame, label.textAlignment(), label.textColor());
}

void drawImageView(Canvas& canvas, const UIImageView& view, const CGRect& frame) {
    canvas.image(view.image(), frame, view.tintColor());
}

/// A veil over what may be any colour, or nothing at all.
void drawControl(Canvas& canvas, const UIControl& control, const CGRect& frame) {
    if (control.isHighlighted()) canvas.fill(frame, kPressedColor, control.cornerRadius());
}

/// The image and the title, beside each other in the middle.
void drawButton(Canvas& canvas, const UIButton& button, const CGRect& frame) {
    static constexpr double kInset = 6;  // a title that is cut stays off the edges
    if (canvas.isOutside(frame)) return;
    canvas.image(button.backgroundImage(), frame, button.tintColor());
    CGSize image = canvas.sizeOf(button.image());
    const double fit = std::min({1.0, frame.width / std::max(image.width, 1.0),
                                 frame.height / std::max(image.height, 1.0)});
    image = {image.width * fit, image.height * fit};
    const TextLayout& title =
        canvas.layout(button.title(), button.font(),
                      {.width = frame.width - image.width - 2 * kInset, .lines = 1});
    const double titleWidth = title.size().width;
    CGRect row = centered({image.width + titleWidth, frame.height}, frame);
    canvas.image(button.image(), centered(image, {row.x, row.y, image.width, row.height}),
                 button.tintColor());
    canvas.text(title, {row.x + image.width, row.y, titleWidth, row.height}, NSTextAlignment::left,
                button.titleColor());
    drawControl(canvas, button, frame);
}

void drawTextField(Canvas& canvas, const UITextField& field, const CGRect& frame) {
    static constexpr double kInset = 7;
    static constexpr const char* kDot = "\u2022";
    if (canvas.isOutside(frame)) return;
    std::string text = field.text();
    if (field.isSecureTextEntry()) {
        const auto characters = qtText(text).toUcs4().size();
        text.clear();
        for (qsizetype i = 0; i < characters; ++i)
            text += kDot;
    }
    const bool isEmpty = text.empty();
    const CGRect box{frame.x + kInset, frame.y, frame.width - 2 * kInset, frame.height};
    const TextLayout& layout = canvas.layout(isEmpty ? field.placeholder() : text, field.font(),
                                             {.width = box.width, .lines = 1});
    canvas.text(layout, box, field.textAlignment(),
                isEmpty ? kPlaceholderColor : field.textColor());
}

void drawTextView(Canvas& canvas, const UITextView& view, const CGRect& frame) {
    static constexpr double kSide = 5;
    static constexpr double kTop = 8;
    if (canvas.isOutside(frame)) return;
    const bool isEmpty = view.text().empty();
    const CGRect box{frame.x + kSide, frame.y + kTop, frame.width - 2 * kSide, frame.height - kTop};
    const TextLayout& layout =
        canvas.layout(isEmpty ? view.placeholder() : view.text(), view.font(),
                      {.width = box.width,
                       .lines = TextLayout::linesThatFit(box.height, view.font().size) + 1,
                       .elides = false});
    canvas.text(layout, box, view.textAlignment(), isEmpty ? kPlaceholderColor : view.textColor(),
                TextPlacement::top);
}

void drawSlider(Canvas& canvas, const UISlider& slider, const CGRect& frame) {
    static constexpr double kKnob = 28;
    static constexpr double kTrack = 2;
    const float range = slider.maximumValue() - slider.minimumValue();
    const double part = range > 0 ? (slider.value() - slider.minimumValue()) / range : 0;
    const double way = std::max(0.0, frame.width - kKnob) * part;
    const CGPoint knob{frame.x + kKnob / 2 + way, frame.center().y};
    const double y = frame.center().y - kTrack / 2;
    canvas.fill({frame.x, y, frame.width, kTrack}, kTrackColor, kTrack / 2);
    canvas.fill({frame.x, y, knob.x - frame.x, kTrack}, kAccentColor, kTrack / 2);
    canvas.fill(disc(knob, kKnob), UIColor::whiteColor(), kKnob / 2);
    canvas.border(disc(knob, kKnob), 0.5, kTrackColor, kKnob / 2);
}

/// A pill with a knob at one of its ends.
void drawSwitch(Canvas& canvas, const UISwitch& control, const CGRect& frame) {
    static constexpr double kEdge = 1.5;
    static constexpr float kDimmed = 0.4F;
    const CGRect pill = centered(UISwitch::kSize, frame);
    const double knob = pill.height - 2 * kEdge;
    const double way = control.isOn() ? pill.width - knob - 2 * kEdge : 0;
    const CGPoint center{pill.x + kEdge + knob / 2 + way, pill.center().y};
    const float alpha = control.isEnabled() ? 1 : kDimmed;
    const UIColor track = (control.isOn() ? kOnColor : kOffColor).colorWithAlphaComponent(alpha);
    canvas.fill(pill, track, pill.height / 2);
    canvas.fill(disc(center, knob), UIColor::whiteColor(), knob / 2);
    canvas.border(disc(center, knob), 0.5, kTrackColor.colorWithAlphaComponent(alpha), knob / 2);
    if (control.isHighlighted()) canvas.fill(pill, kPressedColor, pill.height / 2);
}

/// Spokes that fade around the middle, as far as they have come in a picture that stands.
void drawActivityIndicator(Canvas& canvas, const UIActivityIndicatorView& view,
                           const CGRect& frame) {
    static constexpr int kSpokes = 12;
    static constexpr double kRadius = 10;
    if (!view.isAnimating()) return;
    const CGPoint center = frame.center();
    for (int i = 0; i < kSpokes; ++i) {
        const double angle = 2 * std::numbers::pi * i / kSpokes;
        const CGPoint way{std::sin(angle) * kRadius, -std::cos(angle) * kRadius};
        canvas.line({center.x + way.x / 2, center.y + way.y / 2},
                    {center.x + way.x, center.y + way.y}, 2,
                    view.color().colorWithAlphaComponent(static_cast<float>(i + 1) / kSpokes));
    }
}

void drawAccessory(Canvas& canvas, UITableViewCellAccessory accessory, CGPoint center) {
    static constexpr double kRing = 22;
    static constexpr double kDot = 2.5;
    const auto line = [&](CGPoint from, CGPoint to) {
        canvas.line({center.x + from.x, center.y + from.y}, {center.x + to.x, center.y + to.y}, 2,
                    kAccentColor);
    };
    if (accessory == UITableViewCellAccessory::checkmark) {
        line({-7, 0}, {-2, 5});
        line({-2, 5}, {7, -5});
    } else {
        canvas.border(disc(center, kRing), 1, kAccentColor, kRing / 2);
        canvas.fill(disc({center.x, center.y - 5}, kDot), kAccentColor, kDot / 2);
        line({0, -1.5}, {0, 6});
    }
}

/// What stands beside the content of a row.
void drawTableCell(Canvas& canvas, const UITableViewCell& cell, const CGRect& frame) {
    static constexpr double kDisc = 22;
    static constexpr CGSize kBar{12, 2};
    static constexpr CGSize kGrip{22, 1};
    static constexpr double kGripStep = 5;
    if (const CGRect mark = cell.deleteMark(); mark.width > 0) {
        const CGPoint center = mark.offsetBy(frame.origin()).center();
        canvas.fill(disc(center, kDisc), kDeleteColor, kDisc / 2);
        canvas.fill(centered(kBar, {center.x, center.y, 0, 0}), UIColor::whiteColor());
    }
    if (const CGRect mark = cell.accessoryMark(); mark.width > 0) {
        drawAccessory(canvas, cell.accessory(), mark.offsetBy(frame.origin()).center());
    }
    if (const CGRect mark = cell.reorderMark(); mark.width > 0) {
        const CGPoint center = mark.offsetBy(frame.origin()).center();
        for (const double step : {-kGripStep, 0.0, kGripStep})
            canvas.fill(centered(kGrip, {center.x, center.y + step, 0, 0}), kTrackColor);
    }
}

class KindDrawing final : public ViewVisitor {
public:
    ViewContents contents() const { return contents_; }

    void visit(const UIView&) override {}
    void visit(const UILabel& label) override {
        if (!label.text().empty()) use<UILabel, drawLabel>();
    }
    void visit(const UIImageView& view) override {
        if (!view.image().isNone()) use<UIImageView, drawImageView>();
    }
    void visit(const UIActivityIndicatorView&) override {
        use<UIActivityIndicatorView, drawActivityIndicator>();
    }
    void visit(const UIScrollView&) override {}
    void visit(const UITableView&) override {}
    void visit(const UITableViewCell&) override { use<UITableViewCell, drawTableCell>(); }
    void visit(const UIControl& control) override {
        if (control.isHighlighted()) use<UIControl, drawControl>();
    }
    void visit(const UIButton& button) override {
        const bool showsImage = !button.image().isNone() || !button.backgroundImage().isNone();
        if (showsImage || !button.title().empty() || button.isHighlighted())
            use<UIButton, drawButton>();
    }
    void visit(const UISlider&) override { use<UISlider, drawSlider>(); }
    void visit(const UISwitch&) override { use<UISwitch, drawSwitch>(); }
    // Made of rows and lines.
    void visit(const UIPickerView&) override {}
    void visit(const UIPickerWheel&) override {}
    void visit(const UIDatePicker&) override {}
    void visit(const UITextField&) override { use<UITextField, drawTextField>(); }
    void visit(const UITextView&) override { use<UITextView, drawTextView>(); }

private:
    template <typename View, void (*draw)(Canvas&, const View&, const CGRect&)>
    void use() {
        contents_ = [](Canvas& canvas, const UIView& view, const CGRect& frame) {
            draw(canvas, static_cast<const View&>(view), frame);
        };
    }

    ViewContents contents_ = nullptr;
};

}  // namespace

ViewContents contentsOf(const UIView& view) {
    KindDrawing drawing;
    view.accept(drawing);
    return drawing.contents();
}

}  // namespace gexlo
