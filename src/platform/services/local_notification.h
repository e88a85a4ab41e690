// A notification that the phone shows at a set time, without the application running.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/foundation/keyed_archiver.h"

namespace gexlo {

/// The platform's calendar unit for the week of the year, as a repeat interval.
inline constexpr NSInteger kRepeatWeekly = 8192;
/// The platform's own sound.
inline constexpr const char* UILocalNotificationDefaultSoundName =
    "UILocalNotificationDefaultSoundName";

class UILocalNotification final : public NSCoding {
public:
    NSDate fireDate;
    std::string timeZone;  ///< in which the time of day stays as it is; IANA name
    std::string alertBody;
    std::string alertAction;
    std::string soundName;
    NSInteger repeatInterval = 0;  ///< 0 once, `kRepeatWeekly`; the platform knows no other here
    NSDictionary userInfo;

    /// Nothing for bytes that are no archive of a notification.
    static std::optional<UILocalNotification> fromArchive(const NSData& archive);
    NSData archive() const;

    const char* className() const override { return "UILocalNotification"; }
    void encodeWithCoder(NSCoder& coder) const override;

    bool operator==(const UILocalNotification& other) const;

private:
    friend class NotificationSchedule;
    NSInteger identifier_ = 0;  // given by the schedule, and archived along; 0 before
    bool isShown_ = false;      // of what rang: a host has shown it
};

}  // namespace gexlo
