// What a host offers to send things with.
#pragma once

#include <functional>

#include "platform/services/mail_composer.h"

namespace gexlo {

class Composers {
public:
    virtual ~Composers() = default;

    virtual bool canSendMail() = 0;
    /// Lets the person send the mail, and calls `finished` later, once, in a turn of the main
    /// queue.
    virtual void composeMail(Mail mail, std::function<void(MFMailComposeResult)> finished) = 0;
};

}  // namespace gexlo
