// A person's own run: the application with all that the desktop gives to it and asks of it.
#pragma once

#include <QGuiApplication>
#include <QObject>
#include <filesystem>
#include <string>

#include "hosts/desktop/services/desktop_notifications.h"
#include "hosts/desktop/services/single_instance.h"

namespace gexlo {

class PhoneWindow;

class DesktopSession final : public QObject {
    Q_OBJECT

public:
    /// Launches the application in the window. Made by whoever holds the root's
    /// `InstallationLock`.
    DesktopSession(PhoneWindow& window, const std::filesystem::path& root);
    ~DesktopSession() override;

    /// Brings the window to the front, and hands the URL to the application unless it is "".
    void receive(const std::string& url);

private:
    PhoneWindow& window_;
    DesktopNotifications notifications_;
    SingleInstance instance_;
};

}  // namespace gexlo
