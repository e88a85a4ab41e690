#include "platform/services/local_notification.h"

#include <array>
#include <tuple>

namespace gexlo {

namespace {

std::tuple<NSDate, const std::string&, const std::string&, const std::string&, const std::string&,
           NSInteger, const NSDictionary&>
fields(const UILocalNotification& note) {
    return {note.fireDate,  note.timeZone,       note.alertBody, note.alertAction,
            note.soundName, note.repeatInterval, note.userInfo};
}

}  // namespace

bool UILocalNotification::operator==(const UILocalNotification& other) const {
    return identifier_ == other.identifier_ && fields(*this) == fields(other);
}

void UILocalNotification::encodeWithCoder(NSCoder& coder) const {
    coder.encodeInteger_forKey(identifier_, "identifier");
    coder.encodeObject_forKey(fireDate, "fireDate");
    coder.encodeObject_forKey(timeZone, "timeZone");
    coder.encodeObject_forKey(alertBody, "alertBody");
    coder.encodeObject_forKey(alertAction, "alertAction");
    coder.encodeObject_forKey(soundName, "soundName");
    coder.encodeInteger_forKey(repeatInterval, "repeatInterval");
    coder.encodeObject_forKey(userInfo, "userInfo");
}

NSData UILocalNotification::archive() const {
    return NSKeyedArchiver::archivedDataWithRootObject(
        Object(std::make_shared<UILocalNotification>(*this)));
}

std::optional<UILocalNotification> UILocalNotification::fromArchive(const NSData& archive) {
    const std::array classes{
        CodingClass{"UILocalNotification", [](NSDecoder& decoder) {
                        auto note = std::make_shared<UILocalNotification>();
                        note->identifier_ = decoder.decodeIntegerForKey("identifier");
                        const Object date = decoder.decodeObjectForKey("fireDate");
                        if (const auto* value = date.as<NSDate>()) note->fireDate = *value;
                        note->timeZone = decoder.decodeObjectForKey("timeZone").stringValue();
                        note->alertBody = decoder.decodeObjectForKey("alertBody").stringValue();
                        note->alertAction = decoder.decodeObjectForKey("alertAction").stringValue();
                        note->soundName = decoder.decodeObjectForKey("soundName").stringValue();
                        note->repeatInterval = decoder.decodeIntegerForKey("repeatInterval");
                        const Object info = decoder.decodeObjectForKey("userInfo");
                        if (const auto* value = info.as<NSDictionary>()) note->userInfo = *value;
                        return note;
                    }}};
    const auto root = NSKeyedUnarchiver::unarchiveObjectWithData(archive, classes);
    const auto* object = root ? root->as<std::shared_ptr<NSCoding>>() : nullptr;
    const auto* note = object ? dynamic_cast<const UILocalNotification*>(object->get()) : nullptr;
    return note ? std::optional(*note) : std::nullopt;
}

}  // namespace gexlo
