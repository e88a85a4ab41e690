// The sheet that asks where a picture of the grid goes.
#pragma once

namespace gexlo {

/// Offers mail, two services and the album, the second service only where it is enabled.
void showShareSheet(bool facebookEnabled);

}  // namespace gexlo
