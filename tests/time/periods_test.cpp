// The rows of a grid: numbers, what is shown, and breaks that come, go and move.
#include "time/periods_controller.h"

#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <random>

#include "support/phone.h"

namespace gexlo::test {

namespace {

class Periods : public ::testing::Test {
protected:
    Periods() { phone.launch(); }

    GXClasstimeData& addClasstime(float number, NSInteger week, NSInteger beginHour,
                                  const std::string& name = "") {
        auto& row = phone.addClasstime(phone.timetable(), mon(number, week), beginHour, 0);
        row.name = name;
        return row;
    }

    static float lastShown(const GXPeriodsController& periods) {
        return periods.periodList(0).back()->periodNo;
    }

    Phone phone;
};

/// The rebuild as it is told: every row is looked at for every number.
std::vector<std::pair<float, NSInteger>> scanned(const GXTimetableData& timetable, NSInteger week) {
    std::vector<std::pair<float, NSInteger>> rows;
    for (int n = 0; n <= 34; ++n) {
        for (const float step : {0.0F, 0.1F, 0.5F, 0.6F}) {
            const float number = static_cast<float>(n) + step;
            bool inFirstWeek = false;
            NSInteger beginHour = kNotSet;
            for (const GXClasstimeData* row : timetable.classtimes) {
                if (row->period.get() != number) continue;
                inFirstWeek |= row->week.get() == 0;
                if (row->week.get() == week) beginHour = row->beginHour.get();
            }
            if ((step == 0.1F || step == 0.6F) && !inFirstWeek) continue;
            rows.emplace_back(number, beginHour);
        }
    }
    return rows;
}

TEST_F(Periods, the_rebuild_gives_what_the_scan_gives_on_random_rows) {
    std::mt19937 random(3);
    for (int round = 0; round < 40; ++round) {
        for (GXClasstimeData* row : phone.timetable().classtimes.allObjects())
            phone.manager().context()->deleteObject(*row);
        for (auto i = random() % 200; i > 0; --i) {
            const float steps[] = {0.0F, 0.1F, 0.5F, 0.6F, 0.3F};
            const float number = static_cast<float>(random() % 37) + steps[random() % 5];
            addClasstime(number, static_cast<NSInteger>(random() % 3),
                         static_cast<NSInteger>(random() % 24));
        }
        const GXPeriodsController periods(phone.timetable());
        for (NSInteger week = 0; week < 2; ++week) {
            std::vector<std::pair<float, NSInteger>> rows;
            for (const GXPeriod& period : periods.allPeriodList(week)) {
                rows.emplace_back(period.periodNo, period.beginHour);
                const int tenth = periodTenth(period.periodNo);
                EXPECT_EQ(period.isBreak, tenth == 1 || tenth == 6);
                EXPECT_EQ(period.isBase, tenth == 0 || tenth == 1);
                EXPECT_NE(period.isHalf, period.isBase);
            }
            ASSERT_EQ(rows, scanned(phone.timetable(), week));
        }
    }
}

TEST(PeriodNumbers, are_read_right_where_the_processor_fuses_what_the_rule_is_made_of) {
    int misread = 0;
    for (int n = 0; n <= GXPeriodsController::kLastPeriodNumber; ++n) {
        for (const auto& [step, tenth] : {std::pair{0.0F, 0}, {0.1F, 1}, {0.5F, 5}, {0.6F, 6}}) {
            const float number = static_cast<float>(n) + step;
            EXPECT_EQ(periodTenth(number), tenth) << number;
            const float fused = std::fma(number, 10.0F, -10.0F * static_cast<float>(n));
            misread += static_cast<int>(fused) != tenth;
        }
    }
    EXPECT_EQ(misread, 18) << "with the rule fused";
    const auto commands = nlohmann::json::parse(readFile(GEXLO_COMPILE_COMMANDS));
    for (const auto& source : commands) {
        const auto command = source["command"].get<std::string>();
        EXPECT_NE(command.find(" -ffp-contract=off "), std::string::npos) << command;
    }
}

TEST_F(Periods, a_break_behind_the_last_row_is_neither_shown_nor_counted) {
    for (int n = 1; n <= 9; ++n)
        addClasstime(static_cast<float>(n) + 0.1F, 0, 9, "Break");
    addClasstime(2.6F, 0, 9);
    GXPeriodsController periods(phone.timetable());
    EXPECT_EQ(periods.numBreaks(), 8);
    EXPECT_TRUE(periods.breakIsFull());
    EXPECT_EQ(lastShown(periods), 9.0F);
    EXPECT_EQ(periods.indexOfPeriodNo(2.6F), -1) << "half periods are off";
    EXPECT_EQ(periods.indexOfPeriodNo(2.1F), 3);
    periods.setFirstPeriod_lastPeriod_useHalfPeriods(1, 9, true);
    EXPECT_EQ(lastShown(periods), 9.5F);
    EXPECT_NE(periods.indexOfPeriodNo(2.6F), -1);
    EXPECT_FALSE(periods.breakIsFull());
    EXPECT_EQ(periods.realLastPeriod(), 9.1F) << "stays as the timetable gave it";
    EXPECT_EQ(periods.periodNo(-1), -1.0F);
    EXPECT_EQ(periods.periodNo(99), -1.0F);
}

TEST_F(Periods, a_break_of_the_second_week_alone_does_not_exist_and_a_missing_twin_is_empty) {
    addClasstime(2.1F, 1, 10, "Tea");
    addClasstime(3.1F, 0, 11, "Lunch");
    GXPeriodsController periods(phone.timetable());
    EXPECT_EQ(periods.periodWithPeriodNo_week(2.1F, 0), nullptr);
    EXPECT_EQ(periods.periodWithPeriodNo_week(3.1F, 0)->fullName, "Lunch");
    EXPECT_EQ(periods.periodWithPeriodNo_week(3.1F, 1)->fullName, "");
    EXPECT_EQ(periods.periodWithPeriodNo_week(3.1F, 1)->beginHour, kNotSet);
    EXPECT_EQ(periods.periodWithPeriodNo_week(3.1F, 2), nullptr);
}

TEST_F(Periods, breaks_come_go_and_move_in_both_weeks) {
    addClasstime(2.1F, 0, 10, "Tea");
    addClasstime(2.1F, 1, 11, "Coffee");
    GXPeriodsController periods(phone.timetable());
    const std::size_t rows = periods.allPeriodList(0).size();
    for (const float refused : {2.0F, 2.5F, 2.1F, 34.6F}) {
        periods.addBreakPeriod_fullName_shortName(refused, "x", "x");
        EXPECT_EQ(periods.allPeriodList(0).size(), rows) << refused;
    }
    periods.replaceBreakPeriod_to(2.1F, 4.6F);
    EXPECT_EQ(periods.periodWithPeriodNo_week(2.1F, 1), nullptr);
    EXPECT_EQ(periods.periodWithPeriodNo_week(4.6F, 0)->fullName, "Tea");
    EXPECT_EQ(periods.periodWithPeriodNo_week(4.6F, 1)->fullName, "Coffee");
    EXPECT_EQ(periods.periodWithPeriodNo_week(4.6F, 1)->beginTime, "11:00");
    EXPECT_TRUE(periods.periodWithPeriodNo_week(4.6F, 0)->isHalf);
    periods.replaceBreakPeriod_to(4.6F, 3.1F);
    EXPECT_NE(periods.periodWithPeriodNo_week(4.6F, 0), nullptr) << "not back behind a base period";
    periods.replaceBreakPeriod_to(4.6F, 1.6F);
    EXPECT_NE(periods.periodWithPeriodNo_week(1.6F, 1), nullptr);
    EXPECT_EQ(periods.allPeriodList(1).size(), rows);
    periods.removeBreakPeriod(1.6F);
    periods.removeBreakPeriod(5.0F);
    EXPECT_EQ(periods.allPeriodList(1).size(), rows - 1);
}

TEST_F(Periods, of_another_timetable_only_the_times_are_taken_in_both_weeks) {
    addClasstime(1, 0, 8);
    addClasstime(2.1F, 0, 9, "Lunch");
    addClasstime(3, 1, 7);
    GXPeriodsController periods(phone.timetable());
    GXTimetableData& other = phone.manager().addNewTimetable();
    NSInteger next = 10;
    for (const auto& [number, week] : {std::pair{1.0F, 0}, {1.0F, 1}, {2.1F, 0}, {4.1F, 0}}) {
        GXClasstimeData& row = addClasstime(number, week, next++, "Another");
        row.beginMin = next++;
        row.endHour = next++;
        row.endMin = next++;
        other.classtimes.addObject(row);
    }
    periods.copyClasshoursFromTimetableData(other);
    const auto told = [&](float number, NSInteger week) {
        const GXPeriod* row = periods.periodWithPeriodNo_week(number, week);
        return row ? row->beginTime + "-" + row->endTime : "none";
    };
    EXPECT_EQ(told(1, 0), "10:11-12:13");
    EXPECT_EQ(told(1, 1), "14:15-16:17");
    EXPECT_EQ(told(2.1F, 0), "18:19-20:21");
    EXPECT_EQ(told(2.1F, 1) + told(3, 1), "--") << "what the other has not is not set";
    EXPECT_EQ(told(4.1F, 0), "none") << "nor does a break come along";
    EXPECT_EQ(periods.periodWithPeriodNo_week(2.1F, 0)->fullName, "Lunch");
}

}  // namespace

}  // namespace gexlo::test
