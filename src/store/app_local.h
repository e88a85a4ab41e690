// Questions about the user's language and region.
#pragma once

#include <string>

#include "platform/views/font.h"

namespace gexlo {

/// Both are read once; a change of language in the running process is not seen.
class GXAppLocal {
public:
    static GXAppLocal& appLocal();

    GXAppLocal();

    /// The first two characters of the first preferred language.
    const std::string& language() const { return language_; }
    const std::string& region() const { return region_; }

    bool isKorean() const { return language_ == "ko"; }
    bool isJapanease() const { return language_ == "ja"; }  // spelled so by its callers
    /// Two characters are kept, so only the first test can hold.
    bool isChinese() const {
        return language_ == "zh" || language_ == "zh-Hans" || language_ == "zh-Hant";
    }
    bool isUS() const { return region_ == "US" || region_ == "UM" || region_ == "VI"; }
    bool isCanada() const { return region_ == "CA"; }
    bool isPhilippines() const { return region_ == "PH"; }

    /// The bundled face for Korean, the bold system font for every other language.
    UIFont localBoldFontWithSize(float size) const;

private:
    std::string language_;
    std::string region_;
};

}  // namespace gexlo
