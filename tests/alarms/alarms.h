// What the tests of alarms share: a launched phone, and what it has scheduled.
#pragma once

#include "platform/services/application.h"
#include "platform/services/local_notification.h"
#include "support/launched_phone.h"

namespace gexlo::test {

using Texts = std::vector<std::string>;

class Alarms : public LaunchedPhone {
protected:
    static UIApplication& application() { return UIApplication::sharedApplication(); }
    static std::vector<UILocalNotification> scheduled() {
        return application().scheduledLocalNotifications();
    }
    /// What the notifications are for, that is what stands before the colon.
    static Texts names(const std::vector<UILocalNotification>& notes = scheduled()) {
        Texts names;
        for (const UILocalNotification& note : notes)
            names.push_back(note.alertBody.substr(0, note.alertBody.find(" :")));
        return names;
    }
    GXDayNPeriodData& addPlacement(const std::string& name, const Slot& slot) {
        return *phone.addSubject(name, {slot}).times.anyObject();
    }

    template <typename Item>
    Item& addItem(ToMany<Item>& items, Item& item, const std::string& title) {
        item.title = title;
        item.date = at("2026-03-05T17:00:00");
        item.index = static_cast<NSInteger>(items.count());
        items.addObject(item);
        return item;
    }
};

}  // namespace gexlo::test
