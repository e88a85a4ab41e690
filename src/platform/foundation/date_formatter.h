// Dates as text, in the device's language and region.
#pragma once

#include <unicode/uversion.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/foundation/date.h"
#include "platform/foundation/locale.h"

U_NAMESPACE_BEGIN
class DateFormat;
U_NAMESPACE_END

namespace gexlo {

/// The platform's numbers of its date and time styles.
enum class DateStyle { none = 0, shortStyle = 1, medium = 2, longStyle = 3, full = 4 };

class NSDateFormatter {
public:
    NSDateFormatter();
    ~NSDateFormatter();
    NSDateFormatter(NSDateFormatter&&) noexcept;
    NSDateFormatter& operator=(NSDateFormatter&&) noexcept;

    /// The pattern by which a locale writes the fields of a template such as "HHmm".
    static std::string dateFormatFromTemplate(std::string_view fields, const NSLocale& locale);

    void setDateFormat(std::string pattern);
    void setDateStyle(DateStyle style);
    void setTimeStyle(DateStyle style);

    std::string stringFromDate(NSDate date) const;

private:
    const icu::DateFormat& format() const;

    std::string pattern_;
    DateStyle dateStyle_ = DateStyle::none;
    DateStyle timeStyle_ = DateStyle::none;
    mutable std::shared_ptr<const icu::DateFormat> format_;  // shared with the cache
};

}  // namespace gexlo
