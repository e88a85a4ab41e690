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
    /// Puts its views into the panel; `layOut` gives them their places.
    LessonForm(UIView& panel, const std::function<void()>& colorButtonDidPush);

    UITextField& name() { return *tfName_; }
    UITextField& professor() { return *tfProfessor_; }
    void setTitleColor(UIColor color);
    void setSample(UIColor subject, UIColor font);
    /// In rows of one height, below the panel's topmost points.
    void layOut(double covered);
    /// Of the row below the fields, from behind its title to the panel's edge.
    CGRect roomRow() const { return roomRow_; }

private:
    UILabel& addTitle(UIView& to, const char* textKey);
    UIView& addLine();
    UITextField& addField(const char* identifier, const char* textKey);
    void addColorButton(const std::function<void()>& didPush);

    UIView& panel_;
    CGRect roomRow_;
    std::vector<UILabel*> titles_;  // of the rows, and of the colour button; subviews, as all below
    std::vector<UIView*> lines_;    // above the second row and the third
    UITextField* tfName_ = nullptr;
    UITextField* tfProfessor_ = nullptr;
    UIButton* btnColor_ = nullptr;
    UIView* colorSample_ = nullptr;
    UILabel* fontSample_ = nullptr;
};

}  // namespace gexlo
