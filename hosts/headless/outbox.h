// Where nothing can really be sent: what would have left the application is kept to be looked at.
#pragma once

#include <functional>
#include <vector>

#include "platform/services/composers.h"

namespace gexlo {

class Outbox final : public Composers {
public:
    bool canSendMail() override { return canSendMail_; }
    void setCanSendMail(bool can) { canSendMail_ = can; }
    void composeMail(Mail mail, std::function<void(MFMailComposeResult)> finished) override;

    bool isComposing() const { return finished_ != nullptr; }
    /// The person is done with what is being composed; a mail that is sent leaves.
    void finish(MFMailComposeResult result);
    /// What has left since the last call.
    std::vector<Mail> takeMails();

private:
    bool canSendMail_ = true;
    Mail composed_;
    std::function<void(MFMailComposeResult)> finished_;  // null while nothing is composed
    std::vector<Mail> mails_;
};

}  // namespace gexlo
