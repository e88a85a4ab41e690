#include "platform/services/application.h"

#include <algorithm>

#include "platform/foundation/device.h"
#include "platform/services/notification_schedule.h"

namespace gexlo {

UIApplication& UIApplication::sharedApplication() {
    return Device::current().singleton<UIApplication>();
}

NotificationSchedule& UIApplication::schedule() {
    return Device::current().singleton<NotificationSchedule>();
}

void UIApplication::launch(UIApplicationDelegate& delegate) {
    if (state_ != UIApplicationState::notRunning) return;
    delegate_ = &delegate;
    state_ = UIApplicationState::inactive;
    Device::current().perform([this] {
        schedule().start([this](const UILocalNotification& note) { ring(note); },
                         [this] { tellOfRung(); });
        delegate_->application_didFinishLaunchingWithOptions();
        state_ = UIApplicationState::active;
        delegate_->applicationDidBecomeActive();
        tellOfRung();
    });
}

void UIApplication::enterBackground() {
    if (state_ != UIApplicationState::active) return;
    Device::current().perform([this] {
        state_ = UIApplicationState::inactive;
        delegate_->applicationWillResignActive();
        state_ = UIApplicationState::background;
        delegate_->applicationDidEnterBackground();
    });
}

void UIApplication::enterForeground() {
    if (state_ != UIApplicationState::background) return;
    Device::current().perform([this] {
        state_ = UIApplicationState::inactive;
        delegate_->applicationWillEnterForeground();
        state_ = UIApplicationState::active;
        delegate_->applicationDidBecomeActive();
    });
}

void UIApplication::terminate() {
    if (state_ == UIApplicationState::notRunning) return;
    Device::current().perform([this] { delegate_->applicationWillTerminate(); });
    state_ = UIApplicationState::notRunning;
}

void UIApplication::receiveURL(const std::string& url) {
    if (state_ == UIApplicationState::notRunning) return;
    enterForeground();
    Device::current().perform([&] { delegate_->application_openURL_options(url, {}); });
}

void UIApplication::scheduleLocalNotification(UILocalNotification& note) {
    schedule().add(note);
}

void UIApplication::cancelLocalNotification(const UILocalNotification& note) {
    schedule().remove(note);
}

void UIApplication::cancelAllLocalNotifications() {
    schedule().removeAll();
}

std::vector<UILocalNotification> UIApplication::scheduledLocalNotifications() const {
    return schedule().scheduled();
}

const std::vector<UILocalNotification>& UIApplication::rungLocalNotifications() const {
    return schedule().rung();
}

void UIApplication::removeRungLocalNotification(std::size_t index) {
    schedule().removeRung(index);
}

void UIApplication::ring(const UILocalNotification& note) {
    if (state_ == UIApplicationState::active) {
        // In time where the device is now, and not late by the zone that it was set in.
        UILocalNotification here = note;
        here.fireDate = NotificationSchedule::fireDateHere(note);
        delegate_->application_didReceiveLocalNotification(here);
    } else {
        schedule().addRung(note);
        tellOfRung();
    }
}

void UIApplication::tellOfRung() {
    if (!ringHandler_) return;
    const std::vector<UILocalNotification> unshown = schedule().takeUnshown();
    if (!unshown.empty()) ringHandler_(unshown);
}

std::shared_ptr<void> UIApplication::becomesAlert(const UILocalNotification& note) const {
    return alertHandler_ ? alertHandler_(note) : nullptr;
}

void UIApplication::deliver(const UILocalNotification& note) {
    enterForeground();
    if (state_ != UIApplicationState::active) return;
    Device::current().perform([&] { delegate_->application_didReceiveLocalNotification(note); });
}

void UIApplication::open(const UILocalNotification& note) {
    if (state_ == UIApplicationState::notRunning) return;
    Device::current().perform([&] {
        if (state_ == UIApplicationState::background) delegate_->applicationWillEnterForeground();
        state_ = UIApplicationState::inactive;
        delegate_->application_didReceiveLocalNotification(note);
        state_ = UIApplicationState::active;
        delegate_->applicationDidBecomeActive();
    });
}

void UIApplication::openRung(const std::vector<UILocalNotification>& notes) {
    for (const UILocalNotification& note : notes) {
        const auto& rung = schedule().rung();
        const auto found = std::find(rung.begin(), rung.end(), note);
        if (found == rung.end()) continue;
        schedule().removeRung(static_cast<std::size_t>(found - rung.begin()));
        open(note);
    }
}

}  // namespace gexlo
