#include "hosts/headless/outbox.h"

#include <utility>

#include "platform/foundation/device.h"

namespace gexlo {

void Outbox::composeMail(Mail mail, std::function<void(MFMailComposeResult)> finished) {
    composed_ = std::move(mail);
    finished_ = std::move(finished);
}

void Outbox::finish(MFMailComposeResult result) {
    if (!isComposing()) return;
    if (result == MFMailComposeResult::sent) mails_.push_back(std::move(composed_));
    const auto finished = std::exchange(finished_, nullptr);
    Device::current().perform([&] { finished(result); });
}

std::vector<Mail> Outbox::takeMails() {
    return std::exchange(mails_, {});
}

}  // namespace gexlo
