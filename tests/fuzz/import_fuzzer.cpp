// Whatever a file holds, it is refused and changes nothing, or gives one whole timetable.
#include <cstdlib>

#include "exchange/exchange_reader.h"
#include "presentation/ui_manager.h"
#include "support/phone.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace gexlo;
    static test::Phone phone;
    static const bool isOn = (phone.launch(), phone.expectLog(""), true);
    const std::filesystem::path file = phone.facts.root / "fuzz.gexlo";
    const std::string url = "file://" + file.string();
    test::writeFile(file, {reinterpret_cast<const char*>(data), size});

    ExchangeTimetable timetable;
    if (!isOn || readExchangeFile(url, timetable) != ImportStatus::imported) return 0;
    // The store and the grid bear all that the reader lets through.
    GXDataManager& manager = GXDataManager::manager();
    const std::size_t count = manager.timetableList().size();
    std::int32_t status = 0;
    Device::current().perform(
        [&] { status = GXUIManager::manager().openTimetableFromDataFile(url); });
    if (status != 10 || manager.timetableList().size() != count + 1) std::abort();
    if (phone.timetable().lessons.count() != timetable.lessons.size()) std::abort();
    Device::current().perform([&] { manager.removeTimetable(phone.timetable().index.get()); });
    manager.setCurrentTimetableNo(manager.timetableList().front()->index.get());
    return 0;
}
