#include "hosts/drawing/typeface.h"

#include <QStringList>
#include <string_view>

#include "hosts/drawing/gui_application.h"
#include "hosts/drawing/qt_values.h"
#include "platform/foundation/bundle.h"
#include "platform/foundation/device.h"

namespace gexlo {

namespace {

struct SystemFont {
    std::string_view localization;  // or any other
    const char* family;
};
constexpr SystemFont kSystemFonts[] = {
    {"ja", "Noto Sans CJK JP"},
    {"zh-Hant", "Noto Sans CJK TC"},
    {"zh-Hans", "Noto Sans CJK SC"},
    {"", "Noto Sans CJK KR"},
};

/// Faces that the system names as its phone does, under the names that they have here.
struct NamedFace {
    std::string_view name;
    const char* family;
    bool bold;
    bool italic;
};
constexpr NamedFace kNamedFaces[] = {
    {"NanumGothicOTFBold", "NanumGothic", true, false},
    {"TimesNewRomanPS-ItalicMT", "Noto Serif CJK KR", false, true},
};

const char* systemFamily() {
    const auto& languages = Device::current().facts().languages;
    const std::string first = languages.empty() ? "" : localizationFor({languages.front()});
    const SystemFont* font = kSystemFonts;
    while (!first.starts_with(font->localization))
        ++font;
    return font->family;
}

const NamedFace* namedFace(std::string_view name) {
    for (const NamedFace& face : kNamedFaces) {
        if (face.name == name) return &face;
    }
    return nullptr;
}

}  // namespace

QFont typefaceOf(const UIFont& font) {
    needGuiApplication();
    const NamedFace* face = namedFace(font.family);
    QStringList families;
    if (face) {
        families << face->family;
    } else if (!font.family.empty()) {
        families << qtText(font.family);
    }
    families << systemFamily();
    QFont typeface(families);
    typeface.setPixelSize(kReferenceSize);
    typeface.setBold(font.bold || (face && face->bold));
    typeface.setItalic(face && face->italic);
    typeface.setHintingPreference(QFont::PreferNoHinting);
    // Pictures travel; coloured fringes suit only the screen that they were made for.
    typeface.setStyleStrategy(QFont::NoSubpixelAntialias);
    return typeface;
}

}  // namespace gexlo
