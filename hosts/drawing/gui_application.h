// The toolkit's application object, without which it has no fonts.
#pragma once

namespace gexlo {

/// Makes one that needs no display, and lasts to the end of the process, unless the host has
/// its own. What first measures or paints calls it, so that a run without texts never pays.
void needGuiApplication();

}  // namespace gexlo
