// A person's own run: the application with all that the desktop gives to it and asks of it.
#pragma once

#include <QObject>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "hosts/desktop/services/desktop_notifications.h"
#include "hosts/desktop/services/single_instance.h"
#include "hosts/desktop/services/termination_signals.h"

namespace gexlo {

class PhoneWindow;

/// The application is in the background while nobody can see its window.
class DesktopSession final : public QObject {
    Q_OBJECT

public:
    /// Launches the application in the window. Made by whoever holds the root's
    /// `InstallationLock`.
    DesktopSession(PhoneWindow& window, const std::filesystem::path& root);
    /// The application goes to the background before its end, whatever ends it.
    ~DesktopSession() override;

    /// Brings the window to the front, and hands the URL to the application unless it is "".
    void receive(const std::string& url);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void followWindow();
    void followWindowSoon();
    void bringToFront();
    void open(const DesktopNotifications::Notes& notes);
    std::shared_ptr<void> showBesideAlert(const UILocalNotification& note);

    PhoneWindow& window_;
    DesktopNotifications notifications_;
    SingleInstance instance_;
    TerminationSignals signals_;
};

}  // namespace gexlo
