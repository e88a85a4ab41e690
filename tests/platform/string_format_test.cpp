#include "platform/foundation/string_format.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace gexlo::test {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr NSInteger kLeast = std::numeric_limits<NSInteger>::min();
constexpr NSInteger k3 = 3, k7 = 7;

TEST(StringFormat, every_directive_prints_its_argument) {
    using Arguments = std::vector<FormatArgument>;
    const std::vector<std::tuple<std::string_view, Arguments, std::string>> cases{
        {"%@ - %@|%5@|%-5@|", {"%@ %d", k7, "abc", "abc"}, "%@ %d - 7|  abc|abc  |"},
        {"T%ld, %d, %02d:%02d", {kLeast, -k3, k7, k7 * 100}, "T-9223372036854775808, -3, 07:700"},
        {"%03d|%05.2d|%+d|% d|%5d|%-5d|%x",
         {-k3, k7, k7, k7, -k7, k7, k7},
         "-03|   07|+7| 7|   -7|7    |7"},
        {"%.0f교시 %.01f교시 %.1f %f", {3.0, 3.5, k7, 0.1}, "3교시 3.5교시 7.0 0.100000"},
        {"%06.1f|%+.0f|%.0f|%.0f|%d", {-1.25, 0.5, -0.5, kInfinite, 7.9}, "-001.2|+0|-0|inf|7"},
        {"%2$@ of %1$@ and %2$@|%3$@", {"a", "b"}, "b of a and b|"},
        {"100%% of %d%%", {k7}, "100% of 7%"},
        {"%@: %ld, %f%@.", {"a"}, "a: , ."},
        {"%ld|%.1f|%@", {"text", "text", "text"}, "||text"},
        {"%y %d", {k7}, "%y 7"},
        {"100%", {}, "100%"},
        {"a%-05.2l", {k7}, "a%-05.2l"},
        {"%*d|%-*d|%.*f|%*d|", {k3, k7, k3, k7, k3, 2.5, -k3, k7}, "  7|7  |2.500|7  |"},
        {"%999999999d", {k7}, std::string(511, ' ') + "7"},
        {"%0*d", {kLeast, k7}, "7" + std::string(511, ' ')},
        {"%.99999999999999999999d", {k7}, std::string(511, '0') + "7"},
        {"%99999999999999999999$d", {k7}, ""}};
    for (const auto& [format, arguments, expected] : cases)
        EXPECT_EQ(formatArguments(format, arguments), expected) << format;
}

}  // namespace
}  // namespace gexlo::test
