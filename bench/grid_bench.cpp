// Filling the largest grid, and a launch up to the filled grid.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <tuple>
#include <vector>

#include "app/app_delegate.h"
#include "large_store.h"
#include "largest_grid.h"
#include "platform/services/application.h"
#include "presentation/grid/timetable_pallet.h"
#include "store/data_manager.h"

namespace gexlo::bench {

namespace {

std::size_t countViews(const UIView& view) {
    std::size_t count = 1;
    for (const auto& child : view.subviews())
        count += countViews(*child);
    return count;
}

void fillGrid(benchmark::State& state) {
    const LargestGrid grid;
    GXTimetablePallet pallet;
    pallet.updateFromData();
    for (auto _ : state)
        pallet.updateFromData();
}

void fillGridBound(benchmark::State& state) {
    const LargestGrid grid;
    std::size_t views = 0;
    {
        GXTimetablePallet pallet;
        pallet.updateFromData();
        views = countViews(*pallet.view());
    }
    const GXTimetableData& timetable = *GXDataManager::manager().currentTimetableData();
    const auto before = [](const GXDayNPeriodData* left, const GXDayNPeriodData* right) {
        return std::tuple(left->week.get(), left->day.get(), left->period.get()) <
               std::tuple(right->week.get(), right->day.get(), right->period.get());
    };
    auto root = std::make_shared<UIView>();
    for (auto _ : state) {
        root = std::make_shared<UIView>();
        for (std::size_t i = 0; i < views; ++i) {
            root->addSubview(std::make_shared<UIView>(CGRect{1, 2, 3, 4}));
        }
        std::size_t rooms = 0;
        for (const GXLessonData* lesson : timetable.lessons) {
            std::vector<GXDayNPeriodData*> placements = lesson->times.allObjects();
            std::stable_sort(placements.begin(), placements.end(), before);
            for (const GXDayNPeriodData* placement : placements)
                rooms += placement->room.get().size();
        }
        benchmark::DoNotOptimize(rooms);
    }
}

void launchToGrid(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto device = deviceOn(largeStoreRoot());
        state.ResumeTiming();
        UIApplication::sharedApplication().launch(GXAppDelegate::delegate());
        state.PauseTiming();
        device.reset();
        state.ResumeTiming();
    }
}

void launchToGridBound(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto device = deviceOn(largeStoreRoot());
        state.ResumeTiming();
        benchmark::DoNotOptimize(GXDataManager::manager().timetableList().size());
        state.PauseTiming();
        device.reset();
        state.ResumeTiming();
    }
}

BENCHMARK(fillGrid)->Name("fill the largest grid")->Unit(benchmark::kMillisecond);
BENCHMARK(fillGridBound)->Name("fill the largest grid/bound")->Unit(benchmark::kMillisecond);
BENCHMARK(launchToGrid)->Name("launch to the grid")->Unit(benchmark::kMillisecond);
BENCHMARK(launchToGridBound)->Name("launch to the grid/bound")->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace gexlo::bench
