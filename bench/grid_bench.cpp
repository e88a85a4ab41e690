// Filling the largest grid, and a launch up to the filled grid.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <tuple>
#include <vector>

#include "app/app_delegate.h"
#include "large_store.h"
#include "platform/services/application.h"
#include "presentation/grid/timetable_pallet.h"
#include "store/data_manager.h"
#include "time/periods_controller.h"

namespace gexlo::bench {

namespace {

constexpr int kSubjects = 60;
constexpr int kPlacementsAWeek = 300;
constexpr int kDays = 7;
constexpr float kSteps[] = {0.0F, 0.1F, 0.5F, 0.6F};

void addBreaks(GXDataManager& manager, GXTimetableData& timetable) {
    for (int n = 0; n <= GXPeriodsController::kLastPeriodNumber; ++n) {
        for (const float step : {0.1F, 0.6F}) {
            auto& row = manager.addNewData<GXClasstimeData>();
            row.week = 0;
            row.period = static_cast<float>(n) + step;
            row.name = "Break";
            row.shortName = "B";
            timetable.classtimes.addObject(row);
        }
    }
}

/// Every slot is taken by several subjects, in both weeks.
void addSubjects(GXDataManager& manager, GXTimetableData& timetable) {
    for (int n = 0; n < kSubjects; ++n) {
        GXLessonData& lesson = manager.addNewLessonInTimetable(timetable);
        lesson.name = stringWithFormat("Subject %d", n);
        lesson.color = "#4F96D0";
        lesson.fontColor = "#FFFFFF";
        for (int i = 0; i < 2 * kPlacementsAWeek; ++i) {
            GXDayNPeriodData& placement = manager.addNewDayNPeriod();
            const int slot = i / 2 * 3 + n;
            placement.week = i % 2;
            placement.day = slot % kDays;
            placement.period = static_cast<float>(slot / kDays % 35) + kSteps[slot % 4];
            placement.room = i % 4 == 0 ? "Room 12" : "Room 13";
            lesson.times.addObject(placement);
        }
    }
}

/// A device with the largest grid as its only timetable.
struct LargestGrid {
    LargestGrid() {
        GXDataManager& manager = GXDataManager::manager();
        GXTimetableData& timetable = manager.addNewTimetable();
        timetable.firstDay = 0;
        timetable.lastDay = 6;
        timetable.firstPeriod = 0;
        timetable.lastPeriod = GXPeriodsController::kLastPeriodNumber;
        timetable.useHalfPeriods = true;
        timetable.numWeeks = 2;
        manager.setCurrentTimetableNo(timetable.index.get());
        addBreaks(manager, timetable);
        addSubjects(manager, timetable);
        manager.saveContext();
    }

    TemporaryRoot root;
    std::unique_ptr<Device> device = deviceOn(root.path());
};

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
