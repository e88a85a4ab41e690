#include "platform/foundation/string_format.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace gexlo {

namespace {

constexpr int kWidestField = 512;
constexpr std::string_view kFlags = "-+ #0'";
constexpr std::string_view kLengths = "hlqLzjt";

struct Directive {
    bool leftAligned = false;
    bool signedPlus = false;
    bool signedBlank = false;
    bool alternate = false;
    bool zeroFilled = false;
    int width = 0;
    std::optional<int> precision;
    char conversion = 0;
};

/// Reads a format text from left to right, taking arguments as it goes.
class Formatter {
public:
    Formatter(std::string_view format, std::span<const FormatArgument> arguments)
        : format_(format), arguments_(arguments) {}

    std::string run() {
        while (at_ < format_.size()) {
            const std::size_t percent = format_.find('%', at_);
            out_ += format_.substr(at_, percent - at_);
            if (percent == std::string_view::npos) break;
            at_ = percent + 1;
            directive(percent);
        }
        return std::move(out_);
    }

private:
    bool done() const { return at_ >= format_.size(); }
    char peek() const { return done() ? '\0' : format_[at_]; }

    int digits() {
        int number = 0;
        while (peek() >= '0' && peek() <= '9') {
            number = std::min(number * 10 + (format_[at_++] - '0'), 100'000);
        }
        return number;
    }

    const FormatArgument* next() {
        return next_ < arguments_.size() ? &arguments_[next_++] : nullptr;
    }

    /// A width or a precision: digits, or "*" for one that comes as an argument.
    int field() {
        if (peek() != '*') return std::min(digits(), kWidestField);
        ++at_;
        const FormatArgument* argument = next();
        const NSInteger* number = argument ? std::get_if<NSInteger>(argument) : nullptr;
        return number
                   ? static_cast<int>(std::clamp<NSInteger>(*number, -kWidestField, kWidestField))
                   : 0;
    }

    /// "2$" picks the second argument for this directive.
    std::optional<int> position() {
        const std::size_t before = at_;
        const int number = digits();
        if (number > 0 && peek() == '$') {
            ++at_;
            return number - 1;
        }
        at_ = before;
        return std::nullopt;
    }

    Directive read() {
        Directive read;
        for (; !done() && kFlags.find(peek()) != std::string_view::npos; ++at_) {
            read.leftAligned |= peek() == '-';
            read.signedPlus |= peek() == '+';
            read.signedBlank |= peek() == ' ';
            read.alternate |= peek() == '#';
            read.zeroFilled |= peek() == '0';
        }
        read.width = field();
        if (read.width < 0) {
            read.leftAligned = true;
            read.width = -read.width;
        }
        if (peek() == '.') {
            ++at_;
            if (const int precision = field(); precision >= 0) read.precision = precision;
        }
        while (!done() && kLengths.find(peek()) != std::string_view::npos)
            ++at_;
        read.conversion = peek();
        if (!done()) ++at_;
        return read;
    }

    void directive(std::size_t start) {
        if (peek() == '%') {
            out_ += '%';
            ++at_;
            return;
        }
        const std::optional<int> picked = position();
        const Directive directive = read();
        constexpr std::string_view known = "@sdDiuUxXofFeEgGc";
        if (known.find(directive.conversion) == std::string_view::npos ||
            directive.conversion == 0) {
            out_ += format_.substr(start, at_ - start);
            return;
        }
        const FormatArgument* argument = nullptr;
        if (!picked) {
            argument = next();
        } else if (static_cast<std::size_t>(*picked) < arguments_.size()) {
            argument = &arguments_[static_cast<std::size_t>(*picked)];
        }
        print(directive, argument);
    }

    void print(const Directive& directive, const FormatArgument* argument) {
        switch (directive.conversion) {
            case '@':
            case 's':
                text(directive, argument ? description(*argument) : std::string());
                break;
            case 'c':
            case 'd':
            case 'D':
            case 'i':
            case 'u':
            case 'U':
            case 'x':
            case 'X':
            case 'o':
                if (const auto number = integer(argument)) {
                    integerText(directive, *number);
                } else {
                    text(directive, "");
                }
                break;
            default:
                if (const auto number = real(argument)) {
                    realText(directive, *number);
                } else {
                    text(directive, "");
                }
        }
    }

    static std::string description(const FormatArgument& argument) {
        if (const auto* string = std::get_if<std::string_view>(&argument))
            return std::string(*string);
        if (const auto* number = std::get_if<NSInteger>(&argument))
            return fmt::format("{}", *number);
        return fmt::format("{}", std::get<double>(argument));
    }

    static std::optional<NSInteger> integer(const FormatArgument* argument) {
        if (!argument) return std::nullopt;
        if (const auto* number = std::get_if<NSInteger>(argument)) return *number;
        if (const auto* number = std::get_if<double>(argument)) {
            constexpr double limit = 9.2e18;
            return std::isnan(*number) ? 0
                                       : static_cast<NSInteger>(std::clamp(*number, -limit, limit));
        }
        return std::nullopt;
    }

    static std::optional<double> real(const FormatArgument* argument) {
        if (!argument) return std::nullopt;
        if (const auto* number = std::get_if<double>(argument)) return *number;
        if (const auto* number = std::get_if<NSInteger>(argument))
            return static_cast<double>(*number);
        return std::nullopt;
    }

    void text(const Directive& directive, std::string_view value) {
        pad(directive, "", value, ' ');
    }

    void integerText(const Directive& directive, NSInteger number) {
        const auto bits = static_cast<std::uint64_t>(number);
        std::string sign;
        std::string digits;
        switch (directive.conversion) {
            case 'c':
                return text(directive, std::string(1, static_cast<char>(number & 0x7f)));
            case 'u':
            case 'U':
                digits = fmt::format("{}", bits);
                break;
            case 'x':
                sign = directive.alternate && number != 0 ? "0x" : "";
                digits = fmt::format("{:x}", bits);
                break;
            case 'X':
                sign = directive.alternate && number != 0 ? "0X" : "";
                digits = fmt::format("{:X}", bits);
                break;
            case 'o':
                digits = fmt::format("{:o}", bits);
                break;
            default:
                sign = signOf(directive, number < 0);
                digits = fmt::format("{}", number < 0 ? 0 - bits : bits);
        }
        if (directive.precision && digits.size() < static_cast<std::size_t>(*directive.precision)) {
            digits.insert(0, static_cast<std::size_t>(*directive.precision) - digits.size(), '0');
        }
        pad(directive, sign, digits, directive.zeroFilled && !directive.precision ? '0' : ' ');
    }

    void realText(const Directive& directive, double number) {
        const double size = std::fabs(number);
        const int precision = directive.precision.value_or(6);
        const std::string digits =
            std::isfinite(size)
                ? fmt::format(
                      fmt::runtime(fmt::format("{{:{}.{}{}}}", directive.alternate ? "#" : "",
                                               precision, directive.conversion)),
                      size)
                : (std::isnan(size) ? "nan" : "inf");
        pad(directive, signOf(directive, std::signbit(number) && !std::isnan(number)), digits,
            directive.zeroFilled && std::isfinite(size) ? '0' : ' ');
    }

    static std::string signOf(const Directive& directive, bool negative) {
        if (negative) return "-";
        if (directive.signedPlus) return "+";
        return directive.signedBlank ? " " : "";
    }

    void pad(const Directive& directive, std::string_view sign, std::string_view body, char fill) {
        const std::size_t length = sign.size() + body.size();
        const auto width = static_cast<std::size_t>(directive.width);
        const std::size_t missing = width > length ? width - length : 0;
        if (directive.leftAligned) {
            out_.append(sign).append(body).append(missing, ' ');
        } else if (fill == '0') {
            out_.append(sign).append(missing, '0').append(body);
        } else {
            out_.append(missing, ' ').append(sign).append(body);
        }
    }

    std::string_view format_;
    std::span<const FormatArgument> arguments_;
    std::size_t at_ = 0;
    std::size_t next_ = 0;
    std::string out_;
};

}  // namespace

std::string formatArguments(std::string_view format, std::span<const FormatArgument> arguments) {
    return Formatter(format, arguments).run();
}

}  // namespace gexlo
