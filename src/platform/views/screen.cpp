#include "platform/views/screen.h"

#include "platform/foundation/device.h"

namespace gexlo {

CGRect UIScreen::bounds() const {
    const DeviceFacts& facts = Device::current().facts();
    return {0, 0, static_cast<double>(facts.screenWidth), static_cast<double>(facts.screenHeight)};
}

CGRect UIScreen::applicationFrame() const {
    const double bar = Device::current().facts().statusBarHeight;
    const CGRect screen = bounds();
    return {0, bar, screen.width, screen.height - bar};
}

double UIScreen::scale() const {
    return Device::current().facts().screenScale;
}

}  // namespace gexlo
