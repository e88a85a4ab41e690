#include "platform/foundation/user_defaults.h"

#include "platform/foundation/device.h"
#include "platform/foundation/property_list.h"

namespace gexlo {

namespace {

constexpr std::string_view kStandardName = "standard";
constexpr std::string_view kExtension = ".plist";

/// Everything that is open, one object a file.
class OpenDefaults {
public:
    NSUserDefaults& named(std::string_view name) {
        std::unique_ptr<NSUserDefaults>& defaults = byName_[std::string(name)];
        if (!defaults) {
            const std::string fileName = std::string(name) + std::string(kExtension);
            defaults = std::make_unique<NSUserDefaults>(
                Device::current().facts().preferencesDirectory() / fileName);
        }
        return *defaults;
    }

private:
    std::map<std::string, std::unique_ptr<NSUserDefaults>> byName_;
};

NSUserDefaults& defaultsNamed(std::string_view name) {
    return Device::current().singleton<OpenDefaults>().named(name);
}

}  // namespace

NSUserDefaults& NSUserDefaults::standardUserDefaults() {
    return defaultsNamed(kStandardName);
}

NSUserDefaults& NSUserDefaults::initWithSuiteName(std::string_view name) {
    return defaultsNamed(name);
}

NSUserDefaults::NSUserDefaults(std::filesystem::path file)
    : file_(std::move(file)), values_(dictionaryFromFile(file_)) {
    Device::current().mainQueue().atEndOfTurn([this] { synchronize(); });
}

NSUserDefaults::~NSUserDefaults() {
    synchronize();
}

Object NSUserDefaults::objectForKey(std::string_view key) const {
    const auto found = values_.find(key);
    return found == values_.end() ? Object() : found->second;
}

void NSUserDefaults::setObject_forKey(Object value, std::string_view key) {
    if (value == objectForKey(key)) return;
    changed_ = true;
    if (value.isAbsent()) {
        values_.erase(std::string(key));
    } else {
        values_.insert_or_assign(std::string(key), std::move(value));
    }
}

void NSUserDefaults::synchronize() {
    if (changed_ && writeDictionary(values_, file_)) changed_ = false;
}

std::map<std::string, NSDictionary> userDefaultSuites() {
    std::map<std::string, NSDictionary> suites;
    std::error_code error;
    const auto directory = Device::current().facts().preferencesDirectory();
    // Advanced by hand: the loop's own step throws where a directory cannot be read.
    for (std::filesystem::directory_iterator at(directory, error), end; !error && at != end;
         at.increment(error)) {
        const std::filesystem::path& path = at->path();
        if (path.extension() != kExtension || path.stem() == kStandardName) continue;
        const std::string name = path.stem().string();
        suites[name] = NSUserDefaults::initWithSuiteName(name).dictionaryRepresentation();
    }
    return suites;
}

}  // namespace gexlo
