// One row of a table: its content, and beside it what editing, a choice or a swipe offers.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/views/button.h"

namespace gexlo {

/// What stands at the end of a row that is not being edited.
enum class UITableViewCellAccessory : std::uint8_t { none, checkmark, detailButton };

/// Its owner puts views into `contentView`, which is as large as the row, less what stands
/// beside it.
class UITableViewCell : public UIView {
public:
    /// What a swipe uncovers at the end of a row.
    static constexpr double kDeleteButtonWidth = 76;

    /// With an identifier the table keeps it, once out of sight, for another row.
    explicit UITableViewCell(std::string_view reuseIdentifier = "");
    const char* className() const override { return "UITableViewCell"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    const std::string& reuseIdentifier() const { return reuseIdentifier_; }
    UIView& contentView() { return *contentView_; }
    void setFrame(CGRect frame) override;
    /// Called whenever the content has its size.
    virtual void layoutSubviews() {}

    UITableViewCellAccessory accessory() const { return accessory_; }
    void setAccessory(UITableViewCellAccessory accessory);
    bool isSelected() const { return selected_; }
    /// In place of the background while the row is selected.
    void setSelectedBackgroundColor(UIColor color) { selectedBackgroundColor_ = color; }

    // In the row's coordinates; of size 0 for what it does not offer now.
    CGRect deleteMark() const;
    CGRect accessoryMark() const;
    /// Where one drags the row.
    CGRect reorderMark() const;

private:
    friend class UITableView;

    void setMarks(bool deletes, bool reorders);
    void setSelected(bool selected);
    /// Pushes the content aside as far as that; by 0 the button goes.
    void uncoverDelete(double width);
    UIButton& deleteButton();
    void layout();

    std::string reuseIdentifier_;
    std::shared_ptr<UIView> contentView_;
    std::shared_ptr<UIButton> deleteButton_;  // while a swipe uncovers it
    double uncovered_ = 0;
    UITableViewCellAccessory accessory_ = UITableViewCellAccessory::none;
    bool deletes_ = false;
    bool reorders_ = false;
    bool selected_ = false;
    std::optional<UIColor> selectedBackgroundColor_;
    UIColor formerBackgroundColor_;  // of a selected row
};

}  // namespace gexlo
