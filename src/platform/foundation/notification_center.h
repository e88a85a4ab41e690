// Posts to many listeners, delivered at once and in the order of registration.
#pragma once

#include <any>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/foundation/device.h"

namespace gexlo {

/// What travels with a post, by the keys that the poster and its observers agreed on.
using UserInfo = std::map<std::string, std::any, std::less<>>;

/// One of these keys, and what is under it.
template <typename T>
struct UserInfoKey {
    const char* name;
    /// An entry for a post.
    UserInfo::value_type operator()(T value) const { return {name, std::any(std::move(value))}; }
};

struct NSNotification {
    std::string name;
    UserInfo userInfo;

    /// What is under the key; nothing where that is missing or of another type.
    template <typename T>
    std::optional<T> value(const UserInfoKey<T>& key) const {
        const auto found = userInfo.find(key.name);
        const T* value = found == userInfo.end() ? nullptr : std::any_cast<T>(&found->second);
        return value ? std::optional(*value) : std::nullopt;
    }
};

/// A registration: it ends with its holder.
class NotificationToken {
public:
    NotificationToken() = default;
    NotificationToken(NotificationToken&&) = default;
    NotificationToken& operator=(NotificationToken&& other) noexcept {
        end();
        isRegistered_ = std::move(other.isRegistered_);
        return *this;
    }
    ~NotificationToken() { end(); }

private:
    friend class NSNotificationCenter;
    void end() {
        if (isRegistered_) *isRegistered_ = false;
        isRegistered_.reset();
    }
    std::shared_ptr<bool> isRegistered_;  // part of the observer, which it holds
};

class NSNotificationCenter {
public:
    using Callback = std::function<void(const NSNotification&)>;

    static NSNotificationCenter& defaultCenter() {
        return Device::current().singleton<NSNotificationCenter>();
    }

    [[nodiscard]] NotificationToken addObserver(std::string_view name, Callback callback);

    /// Calls every observer that was registered when the post began and still is when
    /// its turn comes; observers may come and go meanwhile.
    void postNotificationName(std::string_view name, UserInfo userInfo = {});

private:
    struct Observer {
        std::string name;
        Callback callback;
        // A post under way holds the observer too, so its end has to be told.
        bool isRegistered = true;
    };
    std::vector<std::weak_ptr<Observer>> observers_;
};

}  // namespace gexlo
