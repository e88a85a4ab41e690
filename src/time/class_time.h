// Times of classes in text form, by steps of half a period.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "platform/foundation/types.h"

namespace gexlo {

/// A class is a number in steps of one half, from 0 to 33.5; the number of a break falls to
/// the step before it. A number beyond is a fault of the caller. Nothing builds one at
/// present: the period list has taken over its role.
class GXClassTime {
public:
    static constexpr NSInteger kMaxCount = 68;

    NSInteger maxCount() const { return kMaxCount; }

    /// 99 empties the field.
    void setBeginTimeWithClass_hour_min(float number, NSInteger hour, NSInteger minute);
    /// An hour of 99 empties both fields, and a minute of 99 beside a real hour is kept as
    /// "99": not the rule of the beginning, and meant so.
    void setEndTimeWithClass_hour_min(float number, NSInteger hour, NSInteger minute);
    /// Texts as they stand.
    void setBeginTimeStringWithClass_hour_min(float number, std::string hour, std::string minute);
    void setEndTimeStringWithClass_hour_min(float number, std::string hour, std::string minute);

    const std::string& stringBeginHourWithClass(float number) const;
    const std::string& stringBeginMinWithClass(float number) const;
    const std::string& stringEndHourWithClass(float number) const;
    const std::string& stringEndMinWithClass(float number) const;
    /// Hour, colon, minute; "" if both are empty.
    std::string stringBeginTimeWithClass(float number) const;

    /// 99 for an empty text.
    NSInteger numberBeginHourWithClass(float number) const;
    NSInteger numberBeginMinWithClass(float number) const;
    NSInteger numberEndHourWithClass(float number) const;
    NSInteger numberEndMinWithClass(float number) const;

    /// 0 for an empty text.
    NSInteger beginHourWithClass(float number) const;
    NSInteger beginMinWithClass(float number) const;
    NSInteger endHourWithClass(float number) const;
    NSInteger endMinWithClass(float number) const;

    /// Period and range of time, in two lines.
    std::string stringClassTime(float number) const;

    void setClassTime(const GXClassTime& other) { entries_ = other.entries_; }
    void removeAll() { entries_ = {}; }

private:
    struct Entry {
        std::string beginHour, beginMin, endHour, endMin;
    };
    static std::size_t position(float number) { return static_cast<std::size_t>(number * 2); }
    const Entry& entry(float number) const { return entries_.at(position(number)); }
    Entry& entry(float number) { return entries_.at(position(number)); }

    std::array<Entry, kMaxCount> entries_;
};

}  // namespace gexlo
