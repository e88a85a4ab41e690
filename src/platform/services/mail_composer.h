// A mail that the application has written and a person sends.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/types.h"

namespace gexlo {

struct MailAttachment {
    NSData data;
    std::string mimeType;
    std::string fileName;
};

struct Mail {
    std::string subject;
    std::string body;  ///< plain text
    std::vector<MailAttachment> attachments;
};

enum class MFMailComposeResult { cancelled, sent };

class MFMailComposeViewController {
public:
    /// Whether there is an account to send with.
    static bool canSendMail();

    void setSubject(std::string subject) { mail_.subject = std::move(subject); }
    void setMessageBody(std::string text) { mail_.body = std::move(text); }
    void addAttachmentData_mimeType_fileName(NSData data, std::string mimeType,
                                             std::string fileName);
    /// Called once the person is done with the mail and the composer has gone.
    void setFinished(std::function<void(MFMailComposeResult)> finished);

    /// Puts it over the key window, which takes no touch until the person is done.
    void present() &&;

private:
    Mail mail_;
    std::function<void(MFMailComposeResult)> finished_;
};

}  // namespace gexlo
