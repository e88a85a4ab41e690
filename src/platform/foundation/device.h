// The one seam to the world: whatever differs between a desktop, a test and a phone.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <typeindex>
#include <vector>

#include "platform/foundation/clock.h"
#include "platform/foundation/log.h"
#include "platform/foundation/main_queue.h"
#include "platform/foundation/pending_requests.h"

namespace gexlo {

class Composers;
class ImageCoder;
class KeyStore;
class TextMeasure;

/// What a host says about the device before it installs it: values, no more.
struct DeviceFacts {
    std::filesystem::path root;       ///< holds all that the application keeps
    std::filesystem::path resources;  ///< texts, images, fonts
    bool offersGroupContainer = true;

    std::vector<std::string> languages{"en"};  ///< preferred first, as "ko" or "zh-Hant"
    std::string region = "US";                 ///< ISO 3166 code, "" when unknown
    std::string timeZone = "UTC";              ///< IANA name

    int screenWidth = 375;
    int screenHeight = 667;
    int statusBarHeight = 20;
    double screenScale = 2;
    int keyboardHeight = 216;

    std::string bundleVersion = "47";
    std::string osVersion = "15.0";
    std::string machine = "phone1,1";
    std::string vendorId;
    bool watchSupported = true;

    std::string serviceUrl;
    std::string feedbackUrl;

    std::filesystem::path documentsDirectory() const { return root / "Documents"; }
    std::filesystem::path groupDirectory() const { return root / "Group"; }
    std::filesystem::path temporaryDirectory() const { return root / "tmp"; }
    std::filesystem::path preferencesDirectory() const { return root / "Preferences"; }
    std::filesystem::path notificationsFile() const { return root / "Notifications.plist"; }
    std::filesystem::path keychainFile() const { return root / "Keychain.plist"; }
};

/// What a host does for the device. Each is shared with the host, and null where it does not.
struct HostServices {
    /// A plain rule measures in its place.
    std::shared_ptr<const TextMeasure> textMeasure;
    /// No image has pixels without.
    std::shared_ptr<ImageCoder> imageCoder;
    /// The keychain's file is all there is without.
    std::shared_ptr<KeyStore> keyStore;
    /// Nothing can be sent without.
    std::shared_ptr<Composers> composers;
};

/// One device at a time is installed, from construction to end. Its end is the end of
/// the process as the system sees it: every singleton goes, the last built first.
class Device {
public:
    Device(DeviceFacts facts, Clock clock, HostServices services = {});
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    static Device& current();

    const DeviceFacts& facts() const { return facts_; }
    const HostServices& services() const { return services_; }
    Clock& clock() { return clock_; }
    Log& log() { return log_; }
    MainQueue& mainQueue() { return mainQueue_; }
    PendingRequests& requests() { return requests_; }

    /// Held by every turn of the main queue. Whoever calls the system from another
    /// thread, as the watch session does, holds it for the length of that call.
    std::recursive_mutex& lock() { return lock_; }

    /// Runs work on the main queue at once, as one turn of it.
    void perform(const std::function<void()>& work) { mainQueue_.turn(work); }

    /// The one instance of T, built at first call. A T with an `initSingleton` gets that
    /// call once it can be reached.
    template <typename T>
    T& singleton();

private:
    struct Singleton {
        std::type_index type;
        std::shared_ptr<void> instance;  // shared only for its erased deleter
    };
    void* find(std::type_index type) const;
    void expectNotEnding() const;

    DeviceFacts facts_;
    HostServices services_;
    Clock clock_;
    Log log_;
    std::recursive_mutex lock_;
    std::vector<Singleton> singletons_;
    bool isEnding_ = false;
    MainQueue mainQueue_;
    PendingRequests requests_{mainQueue_};
};

template <typename T>
T& Device::singleton() {
    const std::scoped_lock guard(lock_);
    if (void* built = find(typeid(T))) return *static_cast<T*>(built);
    expectNotEnding();
    auto instance = std::make_shared<T>();
    T& reference = *instance;
    singletons_.push_back({typeid(T), std::move(instance)});
    if constexpr (requires { reference.initSingleton(); }) reference.initSingleton();
    return reference;
}

}  // namespace gexlo
