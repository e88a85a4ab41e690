// A colour, or a pattern that repeats an image.
#pragma once

namespace gexlo {

/// Components from 0 to 1.
struct UIColor {
    float red = 0;
    float green = 0;
    float blue = 0;
    float alpha = 0;
    /// Name of the image that a pattern repeats; null for a plain colour.
    const char* patternImage = nullptr;

    static constexpr UIColor clearColor() { return {}; }
    static constexpr UIColor blackColor() { return {0, 0, 0, 1}; }
    static constexpr UIColor whiteColor() { return {1, 1, 1, 1}; }
    static constexpr UIColor darkGrayColor() { return colorWithWhite(1.0F / 3); }
    static constexpr UIColor colorWithWhite(float white, float alpha = 1) {
        return {white, white, white, alpha};
    }
    static constexpr UIColor colorWithRed_green_blue(float red, float green, float blue) {
        return {red, green, blue, 1};
    }
    static constexpr UIColor colorWithPatternImage(const char* name) { return {1, 1, 1, 1, name}; }
    constexpr UIColor colorWithAlphaComponent(float value) const {
        UIColor color = *this;
        color.alpha = value;
        return color;
    }

    bool operator==(const UIColor&) const = default;
};

}  // namespace gexlo
