// Sizes that several screens agree on.
#pragma once

namespace gexlo {

class DefaultValues {
public:
    static const DefaultValues& shared() {
        static constexpr DefaultValues values;
        return values;
    }

    /// Height in points of the panels at the foot of the grid.
    int CLASS_INFO_VIEW_HEIGHT = 120;
};

}  // namespace gexlo
