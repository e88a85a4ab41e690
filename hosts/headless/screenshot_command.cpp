#include "hosts/headless/screenshot_command.h"

#include <QBuffer>
#include <fstream>

#include "hosts/drawing/view_painter.h"
#include "platform/foundation/device.h"
#include "platform/views/window.h"

namespace gexlo {

using nlohmann::json;

namespace {

json screenshot(const json& fields) {
    const std::string path = textField(fields, "path");
    const DeviceFacts& facts = Device::current().facts();
    ViewPainter painter(facts.resources / "images");
    const QImage picture = painter.paintScreen(UIWindow::keyWindow(), facts.screenScale);
    QBuffer png;
    if (picture.isNull() || !picture.save(&png, "PNG")) {
        throw CommandError("the screen is too large for a picture");
    }
    std::ofstream file(path, std::ios::binary);
    file.write(png.data().constData(), png.size());
    file.close();
    if (!file) throw CommandError("\"" + path + "\" cannot be written");
    return nothing();
}

}  // namespace

std::span<const DriverCommand> screenshotCommands() {
    static constexpr DriverCommand kCommands[] = {{"screenshot", screenshot}};
    return kCommands;
}

}  // namespace gexlo
