// What a desktop says about itself: directories, languages, region and time zone.
#pragma once

#include "platform/foundation/device.h"

namespace gexlo {

/// Facts of this desktop: the root under the user's data directory as XDG tells it,
/// languages and region from LANGUAGE, LC_ALL, LC_MESSAGES and LANG, the zone of TZ or
/// of the system, and the resources that were built or installed with the program.
DeviceFacts desktopFacts();

}  // namespace gexlo
