// One wheel of a picker: its rows go round, and the one in the middle is chosen.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/views/label.h"
#include "platform/views/scroll_view.h"

namespace gexlo {

class UIPickerView;

/// Asks and tells the picker that it is on. Rows are views only while they are in sight.
class UIPickerWheel final : public UIScrollView {
public:
    static constexpr double kRowHeight = 32;
    /// Of `selectedRow` where there are no rows.
    static constexpr NSInteger kNoRow = -1;

    explicit UIPickerWheel(NSInteger component);

    const char* className() const override { return "UIPickerWheel"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    NSInteger component() const { return component_; }
    NSInteger numberOfRows() const { return rows_; }
    NSInteger selectedRow() const { return selected_; }
    /// "" where there is none.
    std::string titleForRow(NSInteger row) const;
    /// Of the row that is chosen, as it was when it was last asked for.
    const std::string& selectedTitle() const { return selectedTitle_; }

    /// Asks for everything anew; what was chosen stays so, or the last row is.
    void reload();
    /// The nearest row for one that is none. Tells nobody.
    void selectRow(NSInteger row, bool animated);
    /// As a finger does: tells, even where that row was chosen already.
    void turnToRow(NSInteger row);

    void setFrame(CGRect frame) override;
    CGSize restingStep() const override { return {0, kRowHeight}; }
    void didComeToRest() override;
    /// A tap on a row beside the middle turns to it.
    void touchesBegan(CGPoint) override {}
    void touchesMoved(CGPoint) override {}
    void touchesEnded(CGPoint inWindow) override;
    void touchesCancelled() override {}

protected:
    void didScroll() override { showRowsInSight(); }

private:
    UIPickerView* picker() const;
    double margin() const { return (frame().height - kRowHeight) / 2; }
    CGRect rectForRow(NSInteger row) const;
    NSInteger rowAtRest() const;
    void fitContent();
    void showRowsInSight();
    void choose(NSInteger row);

    NSInteger component_;
    NSInteger rows_ = 0;
    NSInteger selected_ = kNoRow;
    std::string selectedTitle_;
    std::map<NSInteger, std::shared_ptr<UILabel>> shown_;
};

}  // namespace gexlo
