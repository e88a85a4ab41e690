// The kinds of view that hosts tell apart, each with an operation of its own in a visitor.
#pragma once

#include <type_traits>

namespace gexlo {

class UIActivityIndicatorView;
class UIButton;
class UIControl;
class UIDatePicker;
class UIImageView;
class UILabel;
class UIPickerView;
class UIPickerWheel;
class UIScrollView;
class UISlider;
class UISwitch;
class UITableView;
class UITableViewCell;
class UITextField;
class UITextView;
class UIView;

/// Has no operation that stands in for another, so that whoever visits says what becomes of a
/// kind that is new. A class that is built on a kind is visited as that kind.
template <template <typename> typename Access>
class BasicViewVisitor {
public:
    virtual ~BasicViewVisitor() = default;
    virtual void visit(Access<UIView>& view) = 0;
    virtual void visit(Access<UILabel>& label) = 0;
    virtual void visit(Access<UIImageView>& view) = 0;
    virtual void visit(Access<UIActivityIndicatorView>& view) = 0;
    virtual void visit(Access<UIScrollView>& view) = 0;
    virtual void visit(Access<UITableView>& table) = 0;
    virtual void visit(Access<UITableViewCell>& cell) = 0;
    virtual void visit(Access<UIControl>& control) = 0;
    virtual void visit(Access<UIButton>& button) = 0;
    virtual void visit(Access<UISlider>& slider) = 0;
    virtual void visit(Access<UISwitch>& control) = 0;
    virtual void visit(Access<UIPickerView>& picker) = 0;
    virtual void visit(Access<UIPickerWheel>& wheel) = 0;
    virtual void visit(Access<UIDatePicker>& picker) = 0;
    virtual void visit(Access<UITextField>& field) = 0;
    virtual void visit(Access<UITextView>& view) = 0;
};

using ViewVisitor = BasicViewVisitor<std::add_const_t>;
using MutableViewVisitor = BasicViewVisitor<std::type_identity_t>;

}  // namespace gexlo
