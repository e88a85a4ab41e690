#include "hosts/desktop/view_traits.h"

#include "platform/views/button.h"
#include "platform/views/date_picker.h"
#include "platform/views/slider.h"
#include "platform/views/switch.h"
#include "platform/views/table_view.h"
#include "platform/views/text_input.h"

namespace gexlo {

namespace {

using Item = ViewTraits::Item;

class KindTraits final : public ViewVisitor {
public:
    ViewTraits traits;

    void visit(const UIView&) override {}
    void visit(const UILabel& label) override { traits.text = label.text(); }
    void visit(const UIImageView&) override {}
    void visit(const UIActivityIndicatorView&) override {}
    void visit(const UIScrollView&) override { traits.scrolls = true; }
    void visit(const UITableView&) override { traits.scrolls = true; }
    void visit(const UITableViewCell&) override { traits.item = Item::touchable; }
    void visit(const UIControl& control) override { addControl(control, Item::touchable); }
    void visit(const UIButton& button) override {
        traits.text = button.title();
        addControl(button, Item::touchable);
    }
    void visit(const UISlider& slider) override { addControl(slider, Item::touchable); }
    void visit(const UISwitch& control) override {
        addControl(control, Item::touchable);
        traits.role = QAccessible::CheckBox;
        traits.isOn = control.isOn();
    }
    void visit(const UIPickerView&) override {}
    void visit(const UIPickerWheel& wheel) override {
        traits.item = Item::touchable;
        traits.scrolls = true;
        traits.role = QAccessible::SpinBox;
        traits.text = wheel.selectedTitle();
        traits.step = static_cast<int>(wheel.selectedRow());
        traits.lastStep = static_cast<int>(wheel.numberOfRows()) - 1;
    }
    void visit(const UIDatePicker&) override {}
    // What is typed is the item's to speak.
    void visit(const UITextField& field) override { addControl(field, Item::textField); }
    void visit(const UITextView& view) override { addControl(view, Item::textView); }

private:
    void addControl(const UIControl& control, Item item) {
        traits.item = item;
        traits.isEnabled = control.isEnabled();
        traits.isOn = control.isSelected();
    }
};

}  // namespace

ViewTraits traitsOf(const UIView& view) {
    KindTraits kind;
    view.accept(kind);
    return kind.traits;
}

}  // namespace gexlo
