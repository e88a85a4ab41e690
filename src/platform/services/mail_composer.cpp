#include "platform/services/mail_composer.h"

#include "platform/foundation/device.h"
#include "platform/services/composers.h"
#include "platform/views/window.h"

namespace gexlo {

bool MFMailComposeViewController::canSendMail() {
    const auto& composers = Device::current().services().composers;
    return composers && composers->canSendMail();
}

void MFMailComposeViewController::addAttachmentData_mimeType_fileName(NSData data,
                                                                      std::string mimeType,
                                                                      std::string fileName) {
    mail_.attachments.push_back({std::move(data), std::move(mimeType), std::move(fileName)});
}

void MFMailComposeViewController::setFinished(std::function<void(MFMailComposeResult)> finished) {
    finished_ = std::move(finished);
}

void MFMailComposeViewController::present() && {
    const auto& composers = Device::current().services().composers;
    if (!composers) return;
    UIWindow::keyWindow().setCovered(true);
    composers->composeMail(std::move(mail_),
                           [finished = std::move(finished_)](MFMailComposeResult result) {
                               UIWindow::keyWindow().setCovered(false);
                               if (finished) finished(result);
                           });
}

}  // namespace gexlo
