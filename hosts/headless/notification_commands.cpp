// What is scheduled to ring, what rang, and delivering it.
#include "hosts/headless/driver_command.h"
#include "hosts/headless/driver_context.h"
#include "hosts/headless/json_values.h"
#include "platform/services/local_notification.h"

namespace gexlo {

using nlohmann::json;

namespace {

json jsonFromNotifications(const std::vector<UILocalNotification>& notes) {
    json list = json::array();
    for (const UILocalNotification& note : notes) {
        list.push_back({{"fireDate", note.fireDate.timeIntervalSince1970()},
                        {"repeat", note.repeatInterval},
                        {"body", note.alertBody},
                        {"action", note.alertAction},
                        {"sound", note.soundName},
                        {"userInfo", jsonFromDictionary(note.userInfo)}});
    }
    return list;
}

json notifications(const DriverContext& context, const json&) {
    const UIApplication& application = context.application;
    return {{"scheduled", jsonFromNotifications(application.scheduledLocalNotifications())},
            {"rung", jsonFromNotifications(application.rungLocalNotifications())}};
}

json deliver(const DriverContext& context, const json& fields) {
    UIApplication& application = context.application;
    const auto rung = optionalIndex(fields, "rung");
    const std::size_t index = rung ? *rung : indexField(fields, "index");
    const bool isActive = application.applicationState() == UIApplicationState::active;
    const bool active = flagField(fields, "active", isActive);
    const auto notes =
        rung ? application.rungLocalNotifications() : application.scheduledLocalNotifications();
    if (index >= notes.size()) throw CommandError("there is no such notification");
    if (rung) {
        application.removeRungLocalNotification(index);
    } else if (notes[index].repeatInterval == 0) {
        application.cancelLocalNotification(notes[index]);  // it has rung
    }
    if (active) {
        application.deliver(notes[index]);
    } else {
        application.open(notes[index]);
    }
    return nothing();
}

}  // namespace

std::span<const DriverCommand> notificationCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"notifications", notifications},
        {"deliver", deliver},
    };
    return kCommands;
}

}  // namespace gexlo
