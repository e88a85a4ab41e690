#include "platform/views/table_view_cell.h"

#include "platform/foundation/bundle.h"

namespace gexlo {

namespace {

constexpr double kDeleteWidth = 40;
constexpr double kReorderWidth = 42;
constexpr double kAccessoryWidth = 44;
constexpr UIColor kDeleteColor = UIColor::colorWithRed_green_blue(1, 0.23F, 0.19F);

}  // namespace

UITableViewCell::UITableViewCell(std::string_view reuseIdentifier)
    : reuseIdentifier_(reuseIdentifier), contentView_(std::make_shared<UIView>()) {
    addSubview(contentView_);
}

CGRect UITableViewCell::deleteMark() const {
    return {0, 0, deletes_ ? kDeleteWidth : 0, frame().height};
}

CGRect UITableViewCell::accessoryMark() const {
    const bool isShown =
        accessory_ != UITableViewCellAccessory::none && !deletes_ && !reorders_ && uncovered_ == 0;
    const double width = isShown ? kAccessoryWidth : 0;
    return {frame().width - width, 0, width, frame().height};
}

CGRect UITableViewCell::reorderMark() const {
    const double width = reorders_ ? kReorderWidth : 0;
    return {frame().width - width, 0, width, frame().height};
}

void UITableViewCell::setFrame(CGRect frame) {
    const CGSize former = this->frame().size();
    UIView::setFrame(frame);
    if (former != frame.size()) layout();
}

void UITableViewCell::setAccessory(UITableViewCellAccessory accessory) {
    if (accessory == accessory_) return;
    change(accessory_, accessory);
    layout();
}

void UITableViewCell::setMarks(bool deletes, bool reorders) {
    change(deletes_, deletes);
    change(reorders_, reorders);
    layout();
}

void UITableViewCell::setSelected(bool selected) {
    if (selected == selected_) return;
    change(selected_, selected);
    if (!selectedBackgroundColor_) return;
    if (selected) formerBackgroundColor_ = backgroundColor();
    setBackgroundColor(selected ? *selectedBackgroundColor_ : formerBackgroundColor_);
}

UIButton& UITableViewCell::deleteButton() {
    if (deleteButton_) return *deleteButton_;
    deleteButton_ =
        std::make_shared<UIButton>(CGRect{frame().width, 0, kDeleteButtonWidth, frame().height});
    deleteButton_->setAccessibilityIdentifier("deleteButton");
    deleteButton_->setTitle(NSLocalizedString("DELETE_BUTTON"));
    deleteButton_->setBackgroundColor(kDeleteColor);
    addSubview(deleteButton_);
    return *deleteButton_;
}

void UITableViewCell::uncoverDelete(double width) {
    uncovered_ = width;
    layout();
    if (width > 0 || !deleteButton_) return;
    const auto button = std::move(deleteButton_);
    deleteButton_ = nullptr;
    button->removeFromSuperview();
}

void UITableViewCell::layout() {
    const CGSize size = frame().size();
    const double x = deleteMark().width;
    const double width = size.width - x - accessoryMark().width - reorderMark().width;
    contentView_->setFrame({x - uncovered_, 0, width, size.height});
    if (deleteButton_) {
        deleteButton_->setFrame({size.width - uncovered_, 0, kDeleteButtonWidth, size.height});
    }
    layoutSubviews();
}

}  // namespace gexlo
