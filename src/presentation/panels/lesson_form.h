// What the editor of a subject shows beside its rooms: titles, fields and the sample of its
// colours.
#pragma once

#include <functional>
#include <vector>

#include "platform/views/button.h"
#include "platform/views/label.h"
#include "platform/views/text_input.h"

namespace gexlo {

class LessonForm {
public:
    /// Puts its views into the panel, as wide as that is.
    LessonForm(UIView& panel, const std::function<void()>& colorButtonDidPush);

    UITextField& name() { return *tfName_; }
    UITextField& professor() { return *tfProfessor_; }
    void setTitleColor(UIColor color);
    void setSample(UIColor subject, UIColor font);
    /// Of the row below the fields, from behind its title to the panel's edge.
    CGRect roomRow() const;

private:
    void addTitle(const char* textKey, int row);
    void addLine(int row, double width);
    UITextField& addField(const char* identifier, const char* textKey, int row);
    void addColorButton(const std::function<void()>& didPush);
    void setUpTitle(UILabel& title, const char* textKey);

    UIView& panel_;
    std::vector<UILabel*> titles_;  // subviews, as all below
    UITextField* tfName_ = nullptr;
    UITextField* tfProfessor_ = nullptr;
    UIView* colorSample_ = nullptr;
    UILabel* fontSample_ = nullptr;
};

}  // namespace gexlo
