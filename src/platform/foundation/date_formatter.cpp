#include "platform/foundation/date_formatter.h"

#include <unicode/datefmt.h>
#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>

#include <map>

#include "platform/foundation/device.h"

namespace gexlo {

namespace {

icu::UnicodeString unicode(std::string_view text) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

std::string utf8(const icu::UnicodeString& text) {
    std::string result;
    return text.toUTF8String(result);
}

/// Patterns and formatters built so far; building one costs half a millisecond.
struct DateFormatCache {
    std::map<std::string, std::string> patterns;
    std::map<std::string, std::shared_ptr<const icu::DateFormat>> formats;
};

DateFormatCache& cache() {
    return Device::current().singleton<DateFormatCache>();
}

icu::DateFormat::EStyle icuStyle(DateStyle style) {
    switch (style) {
        case DateStyle::none:
            return icu::DateFormat::kNone;
        case DateStyle::shortStyle:
            return icu::DateFormat::kShort;
        case DateStyle::medium:
            return icu::DateFormat::kMedium;
        case DateStyle::longStyle:
            return icu::DateFormat::kLong;
        case DateStyle::full:
            return icu::DateFormat::kFull;
    }
    return icu::DateFormat::kNone;
}

}  // namespace

NSDateFormatter::NSDateFormatter() = default;
NSDateFormatter::~NSDateFormatter() = default;
NSDateFormatter::NSDateFormatter(NSDateFormatter&&) noexcept = default;
NSDateFormatter& NSDateFormatter::operator=(NSDateFormatter&&) noexcept = default;

std::string NSDateFormatter::dateFormatFromTemplate(std::string_view fields,
                                                    const NSLocale& locale) {
    std::string& pattern = cache().patterns[locale.identifier() + "|" + std::string(fields)];
    if (!pattern.empty()) return pattern;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(
            icu::Locale::createFromName(locale.identifier().c_str()), status));
    if (U_SUCCESS(status)) pattern = utf8(generator->getBestPattern(unicode(fields), status));
    return pattern;
}

void NSDateFormatter::setDateFormat(std::string pattern) {
    pattern_ = std::move(pattern);
    format_.reset();
}

void NSDateFormatter::setDateStyle(DateStyle style) {
    dateStyle_ = style;
    format_.reset();
}

void NSDateFormatter::setTimeStyle(DateStyle style) {
    timeStyle_ = style;
    format_.reset();
}

const icu::DateFormat& NSDateFormatter::format() const {
    if (format_) return *format_;
    const std::string name = NSLocale::currentLocale().identifier();
    const std::string key = name + "|" + pattern_ + "|" +
                            std::to_string(static_cast<int>(dateStyle_)) +
                            std::to_string(static_cast<int>(timeStyle_));
    std::shared_ptr<const icu::DateFormat>& cached = cache().formats[key];
    if (!cached) {
        const icu::Locale locale = icu::Locale::createFromName(name.c_str());
        UErrorCode status = U_ZERO_ERROR;
        if (pattern_.empty()) {
            cached.reset(icu::DateFormat::createDateTimeInstance(icuStyle(dateStyle_),
                                                                 icuStyle(timeStyle_), locale));
        } else {
            cached = std::make_shared<icu::SimpleDateFormat>(unicode(pattern_), locale, status);
        }
    }
    format_ = cached;
    return *format_;
}

std::string NSDateFormatter::stringFromDate(NSDate date) const {
    if (pattern_.empty() && dateStyle_ == DateStyle::none && timeStyle_ == DateStyle::none)
        return "";
    icu::UnicodeString text;
    return utf8(format().format(date.timeIntervalSince1970() * 1000, text));
}

}  // namespace gexlo
