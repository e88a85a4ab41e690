#include "hosts/headless/json_views.h"

#include <cmath>

#include "hosts/headless/view_search.h"
#include "platform/views/button.h"
#include "platform/views/date_picker.h"
#include "platform/views/image_view.h"
#include "platform/views/slider.h"
#include "platform/views/switch.h"
#include "platform/views/table_view.h"
#include "platform/views/text_input.h"

namespace gexlo {

using nlohmann::json;

namespace {

double rounded(double value) {
    return std::round(value * 10'000) / 10'000;
}

json jsonFromColor(const UIColor& color) {
    return {rounded(color.red), rounded(color.green), rounded(color.blue), rounded(color.alpha)};
}

json jsonFromRect(const CGRect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

json jsonFromFont(const UIFont& font) {
    return {std::string(font.family), font.size, font.bold};
}

const char* nameOf(NSTextAlignment alignment) {
    static constexpr const char* kNames[] = {"left", "center", "right"};
    return kNames[static_cast<std::size_t>(alignment)];
}

const char* nameOf(UIDatePickerMode mode) {
    static constexpr const char* kNames[] = {"time", "date", "dateAndTime"};
    return kNames[static_cast<std::size_t>(mode)];
}

template <typename Texted>
void addText(json& result, const Texted& view, const std::string& text) {
    result["text"] = text;
    result["font"] = jsonFromFont(view.font());
}

void addImage(json& result, const UIImage& image, const char* field = "image") {
    if (!image.name().empty()) {
        result[field] = image.name();
    } else if (image.isFilled()) {
        result["color"] = jsonFromColor(image.fill());
    }
}

void addTint(json& result, const UIColor& tint) {
    if (tint.alpha > 0) result["tint"] = jsonFromColor(tint);
}

void addButton(json& result, const UIButton& button) {
    const bool hasImage = !button.image().isNone();
    addImage(result, button.backgroundImage(), hasImage ? "backgroundImage" : "image");
    if (hasImage) addImage(result, button.image());
    addTint(result, button.tintColor());
    if (button.title().empty()) return;
    addText(result, button, button.title());
    result["textColor"] = jsonFromColor(button.titleColor());
}

/// Adds what a view tells by its kind.
class KindFields final : public ViewVisitor {
public:
    explicit KindFields(json& result) : result_(result) {}

    void visit(const UIView&) override {}
    void visit(const UILabel& label) override {
        addText(result_, label, label.text());
        result_["textColor"] = jsonFromColor(label.textColor());
        result_["alignment"] = nameOf(label.textAlignment());
    }
    void visit(const UIImageView& view) override {
        addImage(result_, view.image());
        addTint(result_, view.tintColor());
    }
    void visit(const UIActivityIndicatorView&) override {}
    void visit(const UIScrollView& scroll) override {
        result_["contentSize"] = {scroll.contentSize().width, scroll.contentSize().height};
        result_["contentOffset"] = {scroll.contentOffset().x, scroll.contentOffset().y};
    }
    void visit(const UITableView& table) override {
        visit(static_cast<const UIScrollView&>(table));
    }
    void visit(const UITableViewCell&) override {}
    void visit(const UIControl& control) override {
        result_["enabled"] = control.isEnabled();
        if (control.isSelected()) result_["selected"] = true;
    }
    void visit(const UIButton& button) override {
        addButton(result_, button);
        visit(static_cast<const UIControl&>(button));
    }
    void visit(const UISlider& slider) override {
        result_["value"] = slider.value();
        visit(static_cast<const UIControl&>(slider));
    }
    void visit(const UISwitch& control) override {
        result_["value"] = control.isOn();
        visit(static_cast<const UIControl&>(control));
    }
    void visit(const UIPickerView& picker) override {
        result_["value"] = json::array();
        for (NSInteger i = 0; i < picker.numberOfComponents(); ++i)
            result_["value"].push_back(jsonFromSelection(*picker.wheel(i)));
    }
    void visit(const UIPickerWheel& wheel) override {
        result_["value"] = jsonFromSelection(wheel);
        visit(static_cast<const UIScrollView&>(wheel));
    }
    void visit(const UIDatePicker& picker) override {
        result_["value"] = picker.date().timeIntervalSince1970();
        result_["mode"] = nameOf(picker.datePickerMode());
        visit(static_cast<const UIControl&>(picker));
    }
    void visit(const UITextField& field) override {
        addInput(field);
        if (field.isSecureTextEntry()) result_["secure"] = true;
    }
    void visit(const UITextView& view) override { addInput(view); }

private:
    void addInput(const UITextInput& input) {
        addText(result_, input, input.text());
        result_["textColor"] = jsonFromColor(input.textColor());
        result_["alignment"] = nameOf(input.textAlignment());
        if (!input.placeholder().empty()) result_["placeholder"] = input.placeholder();
        result_["focused"] = input.isFirstResponder();
        visit(static_cast<const UIControl&>(input));
    }

    json& result_;
};

/// Null for a view that is not to be shown.
json treeOf(UIView& view, bool all) {
    if (!all && (view.isHidden() || view.alpha() == 0)) return nullptr;
    json children = json::array();
    for (const auto& child : view.subviews()) {
        json tree = treeOf(*child, all);
        if (!tree.is_null()) children.push_back(std::move(tree));
    }
    if (!all && children.empty() && !isVisible(view)) return nullptr;
    json result = jsonFromView(view);
    if (!children.empty()) result["children"] = std::move(children);
    return result;
}

}  // namespace

json jsonFromSelection(const UIPickerWheel& wheel) {
    const NSInteger row = wheel.selectedRow();
    return row == UIPickerWheel::kNoRow ? json() : json(row);
}

json jsonFromView(UIView& view) {
    json result{{"class", view.className()}, {"frame", jsonFromRect(view.frameInWindow())}};
    if (!view.accessibilityIdentifier().empty()) result["id"] = view.accessibilityIdentifier();
    if (!view.accessibilityLabel().empty()) result["label"] = view.accessibilityLabel();
    const UIColor& color = view.backgroundColor();
    if (color.alpha > 0) result["color"] = jsonFromColor(color);
    if (color.patternImage) result["pattern"] = color.patternImage;
    if (view.borderWidth() > 0) {
        result["border"] = {view.borderWidth(), jsonFromColor(view.borderColor())};
    }
    if (view.alpha() != 1) result["alpha"] = rounded(view.alpha());
    if (view.isHidden()) result["hidden"] = true;
    if (view.tag() != 0) result["tag"] = view.tag();
    KindFields kind(result);
    view.accept(kind);
    return result;
}

json jsonFromTree(UIView& view, bool all) {
    return treeOf(view, all);
}

}  // namespace gexlo
