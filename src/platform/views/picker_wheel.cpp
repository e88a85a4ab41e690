#include "platform/views/picker_wheel.h"

#include <algorithm>
#include <cmath>

#include "platform/views/picker_view.h"

namespace gexlo {

namespace {

constexpr double kFontSize = 20;
constexpr double kInset = 4;
/// Of its alpha a row loses as much for each that lies between it and the middle.
constexpr double kFadePerRow = 0.28;
constexpr double kFaintest = 0.12;

}  // namespace

UIPickerWheel::UIPickerWheel(NSInteger component) : component_(component) {
    setAlwaysBounceVertical(true);
    setAccessibilityIdentifier("component_" + std::to_string(component));
}

/// Null for one that has been taken off.
UIPickerView* UIPickerWheel::picker() const {
    return static_cast<UIPickerView*>(superview());
}

std::string UIPickerWheel::titleForRow(NSInteger row) const {
    const auto delegate = picker() ? picker()->delegate() : nullptr;
    if (!delegate || row < 0 || row >= rows_) return "";
    return delegate->titleForRow_forComponent(*picker(), row, component_);
}

void UIPickerWheel::reload() {
    const auto source = picker() ? picker()->dataSource() : nullptr;
    const NSInteger rows = source ? source->numberOfRowsInComponent(*picker(), component_) : 0;
    rows_ = std::max<NSInteger>(0, rows);
    const NSInteger former = std::max<NSInteger>(0, selected_);
    choose(std::min(former, rows_ - 1));
    for (const auto& [row, label] : shown_)
        label->setText(titleForRow(row));
    fitContent();
    showRowsInSight();
}

void UIPickerWheel::selectRow(NSInteger row, bool animated) {
    if (rows_ == 0) return;
    row = std::clamp<NSInteger>(row, 0, rows_ - 1);
    choose(row);
    setContentOffset_animated({0, static_cast<double>(row) * kRowHeight}, animated);
}

void UIPickerWheel::turnToRow(NSInteger row) {
    if (rows_ == 0) return;
    selectRow(row, true);
    if (picker()) picker()->wheelWasTurned(*this);
}

void UIPickerWheel::choose(NSInteger row) {
    selected_ = row;
    selectedTitle_ = titleForRow(row);
    markChanged();
}

// MARK: places

void UIPickerWheel::setFrame(CGRect frame) {
    if (frame == this->frame()) return;
    UIScrollView::setFrame(frame);
    fitContent();
    for (const auto& [row, label] : shown_)
        label->setFrame(rectForRow(row));
    setContentOffset({0, static_cast<double>(std::max<NSInteger>(0, selected_)) * kRowHeight});
    showRowsInSight();
}

CGRect UIPickerWheel::rectForRow(NSInteger row) const {
    return {kInset, margin() + static_cast<double>(row) * kRowHeight, frame().width - 2 * kInset,
            kRowHeight};
}

void UIPickerWheel::fitContent() {
    setContentSize({frame().width, static_cast<double>(rows_) * kRowHeight + 2 * margin()});
}

NSInteger UIPickerWheel::rowAtRest() const {
    const auto row = static_cast<NSInteger>(std::lround(contentOffset().y / kRowHeight));
    return std::clamp<NSInteger>(row, 0, std::max<NSInteger>(0, rows_ - 1));
}

void UIPickerWheel::showRowsInSight() {
    const double top = contentOffset().y - margin();
    const auto rowBelow = [&](double y) {
        const double row = std::clamp(y / kRowHeight, 0.0, static_cast<double>(rows_));
        return static_cast<NSInteger>(row);
    };
    const NSInteger first = rowBelow(top);
    const NSInteger end = rowBelow(top + frame().height + kRowHeight);
    std::erase_if(shown_, [&](const auto& entry) {
        const bool isOut = entry.first < first || entry.first >= end;
        if (isOut) entry.second->removeFromSuperview();
        return isOut;
    });
    const auto fade = [&](UILabel& label, NSInteger row) {
        const double away = std::abs(static_cast<double>(row) - contentOffset().y / kRowHeight);
        label.setAlpha(std::max(kFaintest, 1 - kFadePerRow * away));
    };
    for (NSInteger row = first; row < end; ++row) {
        std::shared_ptr<UILabel>& label = shown_[row];
        if (label) {
            fade(*label, row);
            continue;
        }
        label = std::make_shared<UILabel>(rectForRow(row));
        label->setText(titleForRow(row));
        label->setFont(UIFont::systemFontOfSize(kFontSize));
        label->setTextAlignment(NSTextAlignment::center);
        label->setMinimumScaleFactor(0.5);
        // Even where the wheel is animated.
        animateWithDuration(0, [&] { fade(*label, row); });
        addSubview(label);
    }
}

// MARK: what a finger does

void UIPickerWheel::didComeToRest() {
    if (rows_ == 0 || rowAtRest() == selected_) return;
    choose(rowAtRest());
    if (picker()) picker()->wheelWasTurned(*this);
}

void UIPickerWheel::touchesEnded(CGPoint inWindow) {
    const CGRect frame = frameInWindow();
    if (!frame.contains(inWindow)) return;
    const double y = inWindow.y - frame.y + contentOffset().y - margin();
    const auto row = static_cast<NSInteger>(std::floor(y / kRowHeight));
    if (row >= 0 && row < rows_ && row != selected_) turnToRow(row);
}

}  // namespace gexlo
