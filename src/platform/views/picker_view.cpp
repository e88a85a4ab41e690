#include "platform/views/picker_view.h"

#include <algorithm>

namespace gexlo {

namespace {

constexpr double kGap = 6;  // between two wheels
constexpr double kLine = 1;
constexpr UIColor kLineColor = UIColor::colorWithWhite(0.78F);

}  // namespace

UIPickerView::UIPickerView(CGRect frame) : UIView(frame) {
    setClipsToBounds(true);
    for (auto& line : lines_) {
        line = std::make_shared<UIView>();
        line->setBackgroundColor(kLineColor);
        line->setUserInteractionEnabled(false);
        addSubview(line);
    }
    layOut();
}

void UIPickerView::setFrame(CGRect frame) {
    UIView::setFrame(frame);
    layOut();
}

UIPickerWheel* UIPickerView::wheel(NSInteger component) const {
    if (component < 0 || component >= numberOfComponents()) return nullptr;
    return wheels_[static_cast<std::size_t>(component)].get();
}

void UIPickerView::reloadAllComponents() {
    const auto source = source_.lock();
    const NSInteger count = source ? source->numberOfComponents(*this) : 0;
    while (numberOfComponents() > std::max<NSInteger>(0, count)) {
        const auto wheel = std::move(wheels_.back());
        wheels_.pop_back();
        wheel->removeFromSuperview();
    }
    while (numberOfComponents() < count) {
        wheels_.push_back(std::make_shared<UIPickerWheel>(numberOfComponents()));
        insertSubview_atIndex(wheels_.back(), wheels_.size() - 1);  // below the lines
    }
    layOut();
    for (NSInteger component = 0; component < numberOfComponents(); ++component)
        reloadComponent(component);
}

void UIPickerView::reloadComponent(NSInteger component) {
    if (UIPickerWheel* found = wheel(component)) found->reload();
}

NSInteger UIPickerView::selectedRowInComponent(NSInteger component) const {
    const UIPickerWheel* found = wheel(component);
    return found ? found->selectedRow() : UIPickerWheel::kNoRow;
}

void UIPickerView::selectRow_inComponent_animated(NSInteger row, NSInteger component,
                                                  bool animated) {
    if (UIPickerWheel* found = wheel(component)) found->selectRow(row, animated);
}

void UIPickerView::wheelWasTurned(const UIPickerWheel& wheel) {
    // Whoever is told may close the screen.
    const auto self = shared_from_this();
    const auto delegate = delegate_.lock();
    if (delegate) delegate->didSelectRow_inComponent(*this, wheel.selectedRow(), wheel.component());
}

/// The wheels stand together in the middle.
void UIPickerView::layOut() {
    const double middle = frame().height / 2;
    for (const double side : {-1.0, 1.0}) {
        const double y = middle + side * UIPickerWheel::kRowHeight / 2;
        lines_[side > 0]->setFrame({0, y, frame().width, kLine});
    }
    const auto delegate = delegate_.lock();
    const double gaps = kGap * static_cast<double>(wheels_.size() + 1);
    double left = std::max(0.0, frame().width - gaps);
    double shares = 0;
    std::vector<double> widths;
    for (const auto& wheel : wheels_) {
        widths.push_back(delegate ? delegate->widthForComponent(*this, wheel->component()) : 0);
        left -= widths.back();
        if (widths.back() <= 0) ++shares;
    }
    const double share = shares > 0 ? std::max(0.0, left) / shares : 0;
    double x = kGap + (shares > 0 ? 0 : std::max(0.0, left) / 2);
    for (std::size_t i = 0; i < wheels_.size(); ++i) {
        const double width = widths[i] > 0 ? widths[i] : share;
        wheels_[i]->setFrame({x, 0, width, frame().height});
        x += width + kGap;
    }
}

}  // namespace gexlo
