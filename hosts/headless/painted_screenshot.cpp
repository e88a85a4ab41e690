#include "hosts/headless/painted_screenshot.h"

#include <QBuffer>
#include <fstream>

#include "hosts/drawing/view_painter.h"
#include "hosts/headless/driver_command.h"

namespace gexlo {

void paintScreenshot(const DriverContext& context, const std::filesystem::path& path) {
    const DeviceFacts& facts = context.device.facts();
    ViewPainter painter(facts.resources / "images");
    const QImage picture = painter.paintScreen(context.window(), facts.screenScale);
    QBuffer png;
    if (picture.isNull() || !picture.save(&png, "PNG")) {
        throw CommandError("the screen is too large for a picture");
    }
    std::ofstream file(path, std::ios::binary);
    file.write(png.data().constData(), png.size());
    file.close();
    if (!file) throw CommandError("\"" + path.string() + "\" cannot be written");
}

}  // namespace gexlo
