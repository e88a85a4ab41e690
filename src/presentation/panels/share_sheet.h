// The sheet that asks where a picture of the grid goes.
#pragma once

namespace gexlo {

class UIView;

/// Offers mail, two services and the album, the second service only where it is enabled. The
/// sheet is that of the menu.
void showShareSheet(UIView& menu, bool facebookEnabled);

}  // namespace gexlo
