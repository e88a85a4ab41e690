// The picker of a subject's colour and of the colour of its text.
#pragma once

#include <vector>

#include "platform/views/button.h"
#include "platform/views/label.h"
#include "presentation/panels/panel_stack.h"

namespace gexlo {

/// Whom the picker answers.
class GXColorSelectorDelegate {
public:
    virtual ~GXColorSelectorDelegate() = default;
    /// Indices into the colours on offer; negative for one that was not chosen.
    virtual void colorSelected_andFontColor(NSInteger color, NSInteger fontColor) = 0;
};

class GXColorSelector final : public Panel {
public:
    GXColorSelector(CGRect frame, GXColorSelectorDelegate& delegate);
    const char* className() const override { return "GXColorSelector"; }

    /// Marks the choices, a negative one not, and fades in.
    void showWithColorIndex_andFontColorIndex(NSInteger color, NSInteger fontColor);
    /// Fades out and leaves.
    void closeView();
    void close() override { closeView(); }

    /// What lies under the picker feels nothing.
    void touchesBegan(CGPoint) override {}
    void touchesEnded(CGPoint) override {}
    void touchesCancelled() override {}

private:
    /// A coloured button with the mark that it bears while chosen.
    struct Swatch {
        UIButton* button;  // subview
        UILabel* mark;     // of the button
    };

    void addSubjectColors(double& y);
    void addFontColors(double& y);
    void addAnswers(double y);
    Swatch addSwatch(const std::string& identifier, CGRect frame, UIColor color, NSInteger tag);
    static void mark(const std::vector<Swatch>& swatches, NSInteger chosen);
    void selectColor(NSInteger index);
    void selectFontColor(NSInteger tag);
    void done();

    GXColorSelectorDelegate& delegate_;  // the main screen's, on which this lies
    double swatchHeight_;
    UIView& panel_;
    std::vector<Swatch> colors_;
    std::vector<Swatch> fontColors_;
    NSInteger colorIndex_ = -1;
    NSInteger fontColorIndex_ = -1;
};

}  // namespace gexlo
