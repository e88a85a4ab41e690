// A flow as an application would have it: a long list, a form and wheels under one bar.
#pragma once

#include "platform/foundation/string_format.h"
#include "platform/views/alert.h"
#include "platform/views/navigation_controller.h"
#include "platform/views/picker_view.h"
#include "platform/views/table_view.h"
#include "platform/views/text_input.h"

namespace gexlo::test {

std::shared_ptr<UINavigationController> trialFlow();

/// An hour and a minute on wheels; `More` has the whole flow once more, over this one.
class TrialWheels final : public UIViewController,
                          public UIPickerViewDataSource,
                          public UIPickerViewDelegate {
public:
    void viewDidLoad() override {
        setTitle("Time");
        setRightBarButtonItem(UIBarButtonItem{
            "More", [this] { presentViewController_animated_completion(trialFlow(), true); }});
        chosen_ = &view()->add<UILabel>(CGRect{20, 20, 200, 30});
        chosen_->setAccessibilityIdentifier("chosen");
        auto& picker = view()->add<UIPickerView>(CGRect{0, 60, 320, 216});
        picker.setAccessibilityIdentifier("picker");
        const auto self = std::static_pointer_cast<TrialWheels>(shared_from_this());
        picker.setDataSource(self);
        picker.setDelegate(self);
        picker.reloadAllComponents();
    }
    NSInteger numberOfComponents(UIPickerView&) override { return 2; }
    NSInteger numberOfRowsInComponent(UIPickerView&, NSInteger component) override {
        return component == 0 ? 24 : 60;
    }
    std::string titleForRow_forComponent(UIPickerView&, NSInteger row, NSInteger) override {
        return stringWithFormat("%02ld", row);
    }
    void didSelectRow_inComponent(UIPickerView& picker, NSInteger, NSInteger) override {
        chosen_->setText(stringWithFormat("%02ld:%02ld", picker.selectedRowInComponent(0),
                                          picker.selectedRowInComponent(1)));
    }

private:
    UILabel* chosen_ = nullptr;
};

/// A name that is saved after a question, and the way to the wheels.
class TrialForm final : public UIViewController {
public:
    TrialForm(std::string name, std::function<void(const std::string&)> saved)
        : name_(std::move(name)), saved_(std::move(saved)) {}

    void viewDidLoad() override {
        setTitle("Name");
        setRightBarButtonItem(UIBarButtonItem{"Save", [this] { save(); }});
        field_ = &view()->add<UITextField>(CGRect{20, 20, 280, 40});
        field_->setAccessibilityIdentifier("nameField");
        field_->setText(name_);
        auto& button = view()->add<UIButton>(CGRect{20, 80, 280, 44});
        button.setAccessibilityIdentifier("timeButton");
        button.setTitle("Time");
        button.addAction(UIControlEvent::touchUpInside, [this] {
            navigationController()->pushViewController_animated(std::make_shared<TrialWheels>(),
                                                                true);
        });
    }
    void viewDidAppear(bool) override { field_->becomeFirstResponder(); }

private:
    void save() {
        UIAlert alert;
        alert.title = "Save?";
        alert.buttons = {{"No", UIAlert::Button::Style::cancel}, {"Yes"}};
        alert.dismissed = [this](std::size_t button, const auto&) {
            if (button == 0) return;
            saved_(field_->text());
            navigationController()->popViewControllerAnimated(true);
        };
        std::move(alert).showFor(*view());
    }
    std::string name_;
    std::function<void(const std::string&)> saved_;
    UITextField* field_ = nullptr;
};

/// 10,000 names, of which a touch opens one.
class TrialList final : public UIViewController,
                        public UITableViewDataSource,
                        public UITableViewDelegate {
public:
    void viewDidLoad() override {
        setTitle("Names");
        setLeftBarButtonItem(
            UIBarButtonItem{"Close", [this] { dismissViewControllerAnimated_completion(true); }});
        table_ = &view()->add<UITableView>(CGRect{});
        const auto self = std::static_pointer_cast<TrialList>(shared_from_this());
        table_->setDataSource(self);
        table_->setDelegate(self);
        table_->reloadData();
    }
    void viewDidLayoutSubviews() override { table_->setFrame(view()->bounds()); }
    NSInteger numberOfRowsInSection(UITableView&, NSInteger) override { return 10'000; }
    std::shared_ptr<UITableViewCell> cellForRow(UITableView&, NSIndexPath path) override {
        auto cell = std::make_shared<UITableViewCell>();
        cell->contentView().add<UILabel>(CGRect{20, 0, 300, 44}).setText(nameOf(path.row));
        return cell;
    }
    void didSelectRow(UITableView& table, NSIndexPath path) override {
        table.deselectRow(path, true);
        navigationController()->pushViewController_animated(
            std::make_shared<TrialForm>(nameOf(path.row),
                                        [this, path](const std::string& name) {
                                            renamed_[path.row] = name;
                                            table_->reloadData();
                                        }),
            true);
    }

private:
    std::string nameOf(NSInteger row) const {
        const auto found = renamed_.find(row);
        return found == renamed_.end() ? stringWithFormat("Name %ld", row) : found->second;
    }
    std::map<NSInteger, std::string> renamed_;
    UITableView* table_ = nullptr;
};

inline std::shared_ptr<UINavigationController> trialFlow() {
    return std::make_shared<UINavigationController>(std::make_shared<TrialList>());
}

}  // namespace gexlo::test
