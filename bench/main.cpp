// Runs the benchmarks interleaved, and tells each one's ratio to its lower bound.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "large_store.h"
#include "store/data_manager.h"

namespace {

/// The most that a case may take beside its bound.
const std::map<std::string, double> kLimits{
    {"export a full timetable", 1.5}, {"fill the largest grid", 2.0},
    {"import a full timetable", 2.0}, {"launch to the grid", 1.3},
    {"open the largest store", 1.8},  {"save one attribute", 1.5},
};
constexpr double kResidentLimit = 60;  // MB

class RatioReporter final : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.aggregate_name == "median") {
                medians_[run.run_name.function_name] = run.GetAdjustedRealTime();
            }
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        std::printf("\nMedian time over that of the bound\n");
        for (const auto& [name, limit] : kLimits) {
            const auto own = medians_.find(name);
            const auto bound = medians_.find(name + "/bound");
            if (own == medians_.end() || bound == medians_.end()) continue;
            std::printf("%-28s %.2f (at most %.2f)\n", name.c_str(), own->second / bound->second,
                        limit);
        }
    }

private:
    std::map<std::string, double> medians_;
};

}  // namespace

int main(int count, char** arguments) {
    // Alone in the process, before anything else has taken memory: `--resident DIRECTORY`.
    if (count == 3 && std::string(arguments[1]) == "--resident") {
        const auto device = gexlo::bench::deviceOn(arguments[2]);
        const std::size_t timetables = gexlo::GXDataManager::manager().timetableList().size();
        std::printf("%zu timetables open: %.1f MB resident (at most %.0f)\n", timetables,
                    gexlo::bench::residentMegabytes(), kResidentLimit);
        return 0;
    }
    benchmark::Initialize(&count, arguments);
    RatioReporter reporter;
    gexlo::bench::largeStoreRoot();
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::fflush(stdout);
    const std::string command = "\"" + std::filesystem::read_symlink("/proc/self/exe").string() +
                                "\" --resident \"" + gexlo::bench::largeStoreRoot().string() + "\"";
    return std::system(command.c_str());
}
