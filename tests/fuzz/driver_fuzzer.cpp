// Whatever the lines, each is answered by one line of JSON, and the application lives on.
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "hosts/headless/driver.h"
#include "support/phone.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static gexlo::test::Phone phone;
    gexlo::Driver driver;
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string answer = driver.answer(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        const auto json = nlohmann::json::parse(answer, nullptr, false);
        if (!json.is_object() || !json.contains("ok") || answer.find('\n') != std::string::npos) {
            std::abort();
        }
    }
    driver.end();
    return 0;
}
