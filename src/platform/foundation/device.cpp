#include "platform/foundation/device.h"

#include <unicode/timezone.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace gexlo {

namespace {

Device* installed = nullptr;

void setIcuDefaults(const DeviceFacts& facts) {
    const std::unique_ptr<icu::TimeZone> zone(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(facts.timeZone)));
    icu::TimeZone::setDefault(*zone);
}

}  // namespace

Device::Device(DeviceFacts facts, Clock clock, HostServices services)
    : facts_(std::move(facts)), services_(std::move(services)), clock_(clock), mainQueue_(*this) {
    if (installed) {
        std::fputs("A device is installed already\n", stderr);
        std::abort();
    }
    for (const auto& directory : {facts_.documentsDirectory(), facts_.groupDirectory(),
                                  facts_.temporaryDirectory(), facts_.preferencesDirectory()}) {
        std::error_code ignored;  // a directory that is missing shows where it is used
        std::filesystem::create_directories(directory, ignored);
    }
    setIcuDefaults(facts_);
    installed = this;
    mainQueue_.postSignificantTimeChanges();
}

Device::~Device() {
    const std::scoped_lock guard(lock_);
    mainQueue_.cancelAll();
    requests_.cancelAll();
    isEnding_ = true;
    while (!singletons_.empty())
        singletons_.pop_back();
    installed = nullptr;
}

/// What ends may still use what was built before it, and nothing that is gone.
void Device::expectNotEnding() const {
    if (!isEnding_) return;
    std::fputs("A singleton was asked for after its end\n", stderr);
    std::abort();
}

Device& Device::current() {
    if (!installed) {
        std::fputs("No device is installed\n", stderr);
        std::abort();
    }
    return *installed;
}

void* Device::find(std::type_index type) const {
    const auto found = std::find_if(singletons_.begin(), singletons_.end(),
                                    [&](const Singleton& entry) { return entry.type == type; });
    return found == singletons_.end() ? nullptr : found->instance.get();
}

NSDate NSDate::date() {
    return Device::current().clock().now();
}

}  // namespace gexlo
