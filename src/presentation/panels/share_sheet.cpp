#include "presentation/panels/share_sheet.h"

#include <vector>

#include "platform/foundation/bundle.h"
#include "platform/views/alert.h"
#include "presentation/flows/share_flow.h"
#include "presentation/ui_manager.h"

namespace gexlo {

namespace {

struct Way {
    const char* textKey;
    void (ShareFlow::*send)();
};
constexpr Way kMail{"SHARE_EMAIL", &ShareFlow::sendEmail};
constexpr Way kTwitter{"SHARE_TWITTER", &ShareFlow::sendTwitter};
constexpr Way kFacebook{"SHARE_FACEBOOK", &ShareFlow::sendFacebook};
constexpr Way kAlbum{"SHARE_SAVE_TO_ALBUM", &ShareFlow::saveAlbum};

}  // namespace

void showShareSheet(UIView& menu, bool facebookEnabled) {
    std::vector<Way> ways{kMail, kTwitter};
    if (facebookEnabled) ways.push_back(kFacebook);
    ways.push_back(kAlbum);
    UIAlert sheet;
    sheet.kind = UIAlert::Kind::sheet;
    for (const Way& way : ways)
        sheet.buttons.push_back({NSLocalizedString(way.textKey)});
    sheet.buttons.push_back({NSLocalizedString("CANCEL_BUTTON"), UIAlert::Button::Style::cancel});
    sheet.dismissed = [ways](std::size_t button, const auto&) {
        if (button < ways.size()) GXUIManager::manager().ask(ways[button].send);
    };
    std::move(sheet).showFor(menu);
}

}  // namespace gexlo
