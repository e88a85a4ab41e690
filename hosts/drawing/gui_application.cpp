#include "hosts/drawing/gui_application.h"

#include <QGuiApplication>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>

/// The font library keeps its patterns by offsets, in which the search for leaks at the end sees
/// no pointers. Nothing of this system is allocated below it.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}
/// A driver's run says nothing on standard error unless something is wrong.
extern "C" const char* __lsan_default_options() {
    return "print_suppressions=0";
}
#endif

namespace gexlo {

void needGuiApplication() {
    if (QCoreApplication::instance()) return;
    // As arguments, because a platform in the environment may want a display.
    static char name[] = "gexlo";
    static char option[] = "-platform";
    static char platform[] = "offscreen";
    static char* arguments[] = {name, option, platform, nullptr};
    static int count = 3;
    // The toolkit tells standard error about directories of a desktop session that it then does
    // not use.
    const QtMessageHandler former =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    // Never deleted: at the end of the process its own statics may be gone already.
    static const auto* application = new QGuiApplication(count, arguments);
    static_cast<void>(application);
    qInstallMessageHandler(former);
}

}  // namespace gexlo
