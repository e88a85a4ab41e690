#include "platform/foundation/notification_center.h"

namespace gexlo {

NotificationToken NSNotificationCenter::addObserver(std::string_view name, Callback callback) {
    auto observer = std::make_shared<Observer>(Observer{std::string(name), std::move(callback)});
    std::erase_if(observers_, [](const auto& gone) { return gone.expired(); });
    observers_.push_back(observer);
    NotificationToken token;
    token.isRegistered_ = std::shared_ptr<bool>(observer, &observer->isRegistered);
    return token;
}

void NSNotificationCenter::postNotificationName(std::string_view name, UserInfo userInfo) {
    const NSNotification notification{std::string(name), std::move(userInfo)};
    const std::vector<std::weak_ptr<Observer>> registered = observers_;
    for (const std::weak_ptr<Observer>& candidate : registered) {
        const std::shared_ptr<Observer> observer = candidate.lock();
        if (observer && observer->isRegistered && observer->name == name) {
            observer->callback(notification);
        }
    }
}

}  // namespace gexlo
