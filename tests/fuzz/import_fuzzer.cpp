// Whatever a file holds, it is refused and changes nothing, or gives one whole timetable.
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>

#include "exchange/exchange_reader.h"
#include "presentation/ui_manager.h"
#include "support/phone.h"

namespace {

/// A file in memory, under a name that stays.
class MemoryFile {
public:
    MemoryFile() : descriptor_(::memfd_create("import", 0)) {}
    std::string url() const { return "file:///proc/self/fd/" + std::to_string(descriptor_); }
    bool write(const std::uint8_t* data, std::size_t size) const {
        return ::ftruncate(descriptor_, 0) == 0 &&
               ::pwrite(descriptor_, data, size, 0) == static_cast<ssize_t>(size);
    }

private:
    int descriptor_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace gexlo;
    static const MemoryFile file;
    static test::Phone phone;
    static const bool isOn = (phone.launch(), phone.expectLog(""), true);
    if (!isOn || !file.write(data, size)) std::abort();

    ExchangeTimetable timetable;
    if (readExchangeFile(file.url(), timetable) != ImportStatus::imported) return 0;
    // The store and the grid bear all that the reader lets through.
    GXDataManager& manager = GXDataManager::manager();
    const std::size_t count = manager.timetableList().size();
    std::int32_t status = 0;
    Device::current().perform(
        [&] { status = GXUIManager::manager().openTimetableFromDataFile(file.url()); });
    if (status != 10 || manager.timetableList().size() != count + 1) std::abort();
    if (phone.timetable().lessons.count() != timetable.lessons.size()) std::abort();
    Device::current().perform(
        [&] { manager.removeTimetable(phone.timetable().index.get()); });
    manager.setCurrentTimetableNo(manager.timetableList().front()->index.get());
    return 0;
}
