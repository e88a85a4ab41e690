// Turns the colour names that the data holds into colours.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/types.h"
#include "platform/views/image.h"

namespace gexlo {

/// Names of two generations are known: words of earlier versions, and "#" with six digits. An
/// old timetable keeps its old colours; only the present ones are on offer and have an index.
class GXColorManager {
public:
    static const GXColorManager& colorManager();

    // By index, from 0; beyond the table a dark grey or black, and "" for a name.
    UIColor colorAt(NSInteger index) const;
    UIColor tableColorAt(NSInteger index) const;
    UIColor tableColorAt_alpha(NSInteger index, float alpha) const;
    UIColor fontColorAt(NSInteger index) const;
    std::string colorNameAt(NSInteger index) const;
    std::string tableColorNameAt(NSInteger index) const;
    std::string fontColorNameAt(NSInteger index) const;
    NSInteger numOfColors() const;
    NSInteger numOfTableColors() const;
    NSInteger numOfFontColors() const;

    // By stored name; the first colour on offer where it names none.
    UIColor colorWithName(std::string_view name) const;
    UIColor tableColorWithName(std::string_view name) const;
    UIColor tableColorWithName_alpha(std::string_view name, float alpha) const;
    UIColor fontColorWithName(std::string_view name) const;

    // -1 for a name that is not on offer, those of earlier versions included.
    NSInteger indexWithName(std::string_view name) const;
    NSInteger indexWithTableColorName(std::string_view name) const;
    NSInteger indexWithFontColorName(std::string_view name) const;

    UIColor backgroundColorAt(NSInteger index) const;
    std::string backgroundColorNameAt(NSInteger index) const;
    /// Nothing for a name that is none of a colour: the name of an image.
    std::optional<UIColor> backgroundColorWithName(std::string_view name) const;

    /// Three or six hexadecimal digits behind any number of "#"; what is not hexadecimal ends
    /// them. Always opaque.
    UIColor colorFromString(std::string_view text) const;
    /// From 0 to 1; 1 for a pattern.
    float brightnessWithColor(UIColor color) const;
    /// Black (0) on bright subject colours, else white (1). Nothing calls it at present.
    NSInteger fontColorIndexFromSubjectColorIndex(NSInteger index) const;
    UIImage imageWithColor_width_height(UIColor color, double width, double height) const;
};

}  // namespace gexlo
