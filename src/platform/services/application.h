// The running application as the platform sees it: its states and its notifications.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/types.h"

namespace gexlo {

class NotificationSchedule;
class UILocalNotification;

enum class UIApplicationState : std::uint8_t { notRunning, active, inactive, background };

/// What stands in the status bar: dark on light, or light on dark.
enum class UIStatusBarStyle : std::uint8_t { defaultStyle, lightContent };

/// Kinds of notification that a person can allow.
inline constexpr NSInteger kNotificationTypeBadge = 1;
inline constexpr NSInteger kNotificationTypeSound = 2;
inline constexpr NSInteger kNotificationTypeAlert = 4;

/// Who hands a URL over, as far as that is known.
struct UIApplicationOpenURLOptions {
    std::string sourceApplication;
    std::string annotation;
};

/// Whom the platform calls.
class UIApplicationDelegate {
public:
    virtual ~UIApplicationDelegate() = default;
    virtual bool application_didFinishLaunchingWithOptions() = 0;
    virtual void applicationWillResignActive() = 0;
    virtual void applicationDidEnterBackground() = 0;
    virtual void applicationWillEnterForeground() = 0;
    virtual void applicationDidBecomeActive() = 0;
    virtual void applicationWillTerminate() = 0;
    virtual void application_didReceiveLocalNotification(const UILocalNotification& note) = 0;
    virtual bool application_openURL_options(const std::string& url,
                                             const UIApplicationOpenURLOptions& options) = 0;
};

class UIApplication {
public:
    static UIApplication& sharedApplication();

    UIApplicationState applicationState() const { return state_; }

    /// What a host may paint in the status bar.
    UIStatusBarStyle statusBarStyle() const { return statusBarStyle_; }
    void setStatusBarStyle_animated(UIStatusBarStyle style, bool /*animated*/) {
        statusBarStyle_ = style;
    }

    // MARK: for the host, each a turn of the main queue; one that does not fit the state does
    // nothing

    /// The delegate stays from here on.
    void launch(UIApplicationDelegate& delegate);
    void enterBackground();
    void enterForeground();
    void terminate();
    /// Brings the application to the front and hands it a URL, as absolute text. Nothing happens
    /// before the launch.
    void receiveURL(const std::string& url);

    // MARK: notifications

    /// Asks the person for the right to notify.
    void registerUserNotificationSettings(NSInteger types) { notificationTypes_ = types; }
    NSInteger notificationTypes() const { return notificationTypes_; }
    /// A copy is scheduled; the given one is marked, so that its archive can cancel it.
    void scheduleLocalNotification(UILocalNotification& note);
    void cancelLocalNotification(const UILocalNotification& note);
    void cancelAllLocalNotifications();
    /// In the order in which they were scheduled.
    std::vector<UILocalNotification> scheduledLocalNotifications() const;

    // MARK: for the host, what rang

    /// What rang while the application was not active, oldest first.
    const std::vector<UILocalNotification>& rungLocalNotifications() const;
    void removeRungLocalNotification(std::size_t index);
    /// Called once with all that has joined the list: with each as it rings while the application
    /// runs unseen, and together with what fell due while nothing ran or the machine slept.
    using RingHandler = std::function<void(const std::vector<UILocalNotification>&)>;
    void setRingHandler(RingHandler handler) { ringHandler_ = std::move(handler); }
    /// Called with what becomes an alert. What it gives, or null, is held by that alert.
    using AlertHandler = std::function<std::shared_ptr<void>(const UILocalNotification&)>;
    void setAlertHandler(AlertHandler handler) { alertHandler_ = std::move(handler); }
    /// For who shows the alert, to hold as long as it is up.
    std::shared_ptr<void> becomesAlert(const UILocalNotification& note) const;
    /// Hands a notification to the application while it is active.
    void deliver(const UILocalNotification& note);
    /// A tap on a notification, which brings the application to the front.
    void open(const UILocalNotification& note);
    /// A tap on what a host has shown: takes each that still is among what rang out of there and
    /// opens it.
    void openRung(const std::vector<UILocalNotification>& notes);

private:
    static NotificationSchedule& schedule();
    void ring(const UILocalNotification& note);
    void tellOfRung();

    UIApplicationDelegate* delegate_ = nullptr;  // ends with the device, as this does
    UIApplicationState state_ = UIApplicationState::notRunning;
    UIStatusBarStyle statusBarStyle_ = UIStatusBarStyle::defaultStyle;
    NSInteger notificationTypes_ = 0;
    RingHandler ringHandler_;
    AlertHandler alertHandler_;
};

}  // namespace gexlo
