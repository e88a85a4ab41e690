// Colour names of both generations, and what stands in for those that are none.
#include <gtest/gtest.h>

#include "presentation/style/color_manager.h"

namespace gexlo::test {

namespace {

const GXColorManager& colors = GXColorManager::colorManager();
const UIColor kFirst = colors.colorAt(0);
constexpr UIColor kBlack = UIColor::blackColor();
constexpr UIColor kWhite = UIColor::whiteColor();
constexpr UIColor rgb(float red, float green, float blue) {
    return UIColor::colorWithRed_green_blue(red, green, blue);
}

TEST(Colors, each_colour_on_offer_is_found_by_its_name_and_looks_like_its_digits) {
    const auto check = [](NSInteger count, auto at, auto nameAt, auto withName, auto indexOf) {
        for (NSInteger i = 0; i < count; ++i) {
            const std::string name = (colors.*nameAt)(i);
            EXPECT_EQ((colors.*indexOf)(name), i) << name;
            for (const auto part : {&UIColor::red, &UIColor::green, &UIColor::blue})
                EXPECT_NEAR((colors.*at)(i).*part, (colors.*withName)(name).*part, 0.006F) << name;
        }
        EXPECT_EQ((colors.*nameAt)(count) + (colors.*nameAt)(-1), "");
        EXPECT_EQ((colors.*indexOf)("orange"), -1) << "no longer on offer";
    };
    using It = GXColorManager;
    check(32, &It::colorAt, &It::colorNameAt, &It::colorWithName, &It::indexWithName);
    check(16, &It::tableColorAt, &It::tableColorNameAt, &It::tableColorWithName,
          &It::indexWithTableColorName);
    check(2, &It::fontColorAt, &It::fontColorNameAt, &It::fontColorWithName,
          &It::indexWithFontColorName);
    EXPECT_EQ(colors.colorAt(32), rgb(0.3F, 0.3F, 0.3F));
}

TEST(Colors, a_name_means_what_its_own_family_says) {
    const struct {
        std::string name;
        UIColor subject, table, font;
    } cases[] = {
        {"orange", rgb(0.95F, 0.64F, 0), rgb(0.98F, 0.66F, 0.15F), kBlack},
        {"white", kFirst, kWhite, kWhite},
        {"Orange", kFirst, kWhite, kBlack},
        {"#ff", kFirst, kWhite, kBlack},
        {"#f0f", rgb(1, 0, 1), rgb(1, 0, 1), rgb(1, 0, 1)},
        {"##FF#0000", rgb(1, 0, 0), rgb(1, 0, 0), rgb(1, 0, 0)},
        {"#FF00", rgb(0, 0, 1), rgb(0, 0, 1), rgb(0, 0, 1)},
        {"#123456789ab", kWhite, kWhite, kWhite},
        {"#zzzzzz", kBlack, kBlack, kBlack},
    };
    for (const auto& at : cases) {
        EXPECT_EQ(colors.colorWithName(at.name), at.subject) << at.name;
        EXPECT_EQ(colors.tableColorWithName(at.name), at.table) << at.name;
        EXPECT_EQ(colors.fontColorWithName(at.name), at.font) << at.name;
    }
    EXPECT_STREQ(colors.backgroundColorWithName("bluestripe")->patternImage, "vintage_stripe");
    EXPECT_EQ(colors.backgroundColorWithName("#FAE2B8"), rgb(0.980F, 0.882F, 0.710F));
    EXPECT_FALSE(colors.backgroundColorWithName("#F00")) << "the name of an image";
}

}  // namespace

}  // namespace gexlo::test
