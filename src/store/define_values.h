// Values that several parts of the program agree on.
#pragma once

namespace gexlo {

class DefineValues {
public:
    static const DefineValues& shared() {
        static constexpr DefineValues values;
        return values;
    }

    /// Identifier of the group whose directory and suite the application and the watch share.
    const char* APP_GROUP = "group.pindrel.gexlo";
};

}  // namespace gexlo
