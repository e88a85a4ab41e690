// What leaves the application, and what is handed to it.
#include "hosts/headless/driver_command.h"
#include "hosts/headless/driver_context.h"
#include "hosts/headless/json_values.h"
#include "hosts/headless/outbox.h"

namespace gexlo {

using nlohmann::json;

namespace {

Outbox& outboxOf(const DriverContext& context) {
    if (!context.host.outbox) throw CommandError("what is sent does not stay here");
    return *context.host.outbox;
}

json openURL(const DriverContext& context, const json& fields) {
    context.application.receiveURL(textField(fields, "url"));
    return nothing();
}

json jsonFromMail(const Mail& mail) {
    json attachments = json::array();
    for (const MailAttachment& attachment : mail.attachments) {
        attachments.push_back({{"name", attachment.fileName},
                               {"type", attachment.mimeType},
                               {"data", base64FromData(attachment.data)}});
    }
    return {{"subject", mail.subject}, {"body", mail.body}, {"attachments", attachments}};
}

json outbox(const DriverContext& context, const json&) {
    json mails = json::array();
    for (const Mail& mail : outboxOf(context).takeMails())
        mails.push_back(jsonFromMail(mail));
    // Nothing else leaves by now.
    return {{"mail", mails},
            {"social", json::array()},
            {"album", json::array()},
            {"opened", json::array()}};
}

json composer(const DriverContext& context, const json& fields) {
    const std::string result = textField(fields, "result");
    if (result != "sent" && result != "cancelled") {
        throw CommandError(R"("result" is neither "sent" nor "cancelled")");
    }
    Outbox& outbox = outboxOf(context);
    if (!outbox.isComposing()) throw CommandError("nothing is being composed");
    outbox.finish(result == "sent" ? MFMailComposeResult::sent : MFMailComposeResult::cancelled);
    return nothing();
}

json setCanSendMail(const DriverContext& context, const json& fields) {
    outboxOf(context).setCanSendMail(flagField(fields, "value"));
    return nothing();
}

}  // namespace

std::span<const DriverCommand> sendingCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"open_url", openURL},
        {"outbox", outbox},
        {"composer", composer},
        {"set_can_send_mail", setCanSendMail, false},
    };
    return kCommands;
}

}  // namespace gexlo
