// Wheels side by side, asked of a data source, each of which has one row chosen.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/views/picker_wheel.h"

namespace gexlo {

class UIPickerView;

/// Whom a picker asks for its wheels.
class UIPickerViewDataSource {
public:
    virtual ~UIPickerViewDataSource() = default;
    virtual NSInteger numberOfComponents(UIPickerView&) { return 1; }
    virtual NSInteger numberOfRowsInComponent(UIPickerView&, NSInteger component) = 0;
};

/// Whom a picker asks how its wheels look, and tells which row a person has chosen.
class UIPickerViewDelegate {
public:
    virtual ~UIPickerViewDelegate() = default;
    virtual std::string titleForRow_forComponent(UIPickerView&, NSInteger row,
                                                 NSInteger component) = 0;
    /// 0 for an equal share of what the others leave.
    virtual double widthForComponent(UIPickerView&, NSInteger /*component*/) { return 0; }
    /// The wheel has come to rest there. Whatever the program selects is not told.
    virtual void didSelectRow_inComponent(UIPickerView&, NSInteger /*row*/,
                                          NSInteger /*component*/) {}
};

class UIPickerView final : public UIView {
public:
    static constexpr double kHeight = 216;

    explicit UIPickerView(CGRect frame);

    const char* className() const override { return "UIPickerView"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    /// Null where there is none.
    std::shared_ptr<UIPickerViewDataSource> dataSource() const { return source_.lock(); }
    std::shared_ptr<UIPickerViewDelegate> delegate() const { return delegate_.lock(); }
    // Nothing is asked before it is reloaded.
    void setDataSource(std::weak_ptr<UIPickerViewDataSource> source) {
        source_ = std::move(source);
    }
    void setDelegate(std::weak_ptr<UIPickerViewDelegate> delegate) {
        delegate_ = std::move(delegate);
    }
    void setFrame(CGRect frame) override;

    /// Asks for everything anew; what was chosen stays so where it still can.
    void reloadAllComponents();
    void reloadComponent(NSInteger component);
    NSInteger numberOfComponents() const { return std::ssize(wheels_); }
    /// -1 where there are no rows, or no such wheel.
    NSInteger selectedRowInComponent(NSInteger component) const;
    /// The nearest row for one that is none; nothing for a wheel that is none. Tells nobody.
    void selectRow_inComponent_animated(NSInteger row, NSInteger component, bool animated);
    /// Null for one that is none.
    UIPickerWheel* wheel(NSInteger component) const;

    /// Of a wheel, when a finger has turned it.
    void wheelWasTurned(const UIPickerWheel& wheel);

private:
    void layOut();

    std::weak_ptr<UIPickerViewDataSource> source_;
    std::weak_ptr<UIPickerViewDelegate> delegate_;
    std::vector<std::shared_ptr<UIPickerWheel>> wheels_;
    std::shared_ptr<UIView> lines_[2];  // above and below what is chosen
};

}  // namespace gexlo
