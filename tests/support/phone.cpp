#include "support/phone.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

#include "app/app_delegate.h"
#include "platform/foundation/calendar.h"
#include "platform/foundation/string_format.h"
#include "platform/services/application.h"
#include "time/period.h"

namespace gexlo::test {

namespace {

/// Lines that every run may write.
constexpr std::array kUsualLines{"LAUNCH", "Loading Time : ", "data update no : ", "language : "};

template <typename List>
bool isAmong(const std::string& line, const List& parts) {
    return std::any_of(parts.begin(), parts.end(), [&](const std::string& part) {
        return line.find(part) != std::string::npos;
    });
}

}  // namespace

NSDate at(const std::string& localTime) {
    return dateFromLocalTime(localTime, NSCalendar::currentCalendar()).value();
}

std::string localTime(NSDate date) {
    const auto is = NSCalendar::currentCalendar().componentsFromDate(date);
    return stringWithFormat("%04d-%02d-%02dT%02d:%02d:%02d", is.year, is.month, is.day, is.hour,
                            is.minute, is.second);
}

TemporaryDirectory::TemporaryDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "gexlo-test-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string readFile(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream contents;
    contents << in.rdbuf();
    return contents.str();
}

void writeFile(const std::filesystem::path& file, const std::string& contents) {
    std::ofstream(file, std::ios::binary) << contents;
}

Phone::Phone() {
    facts.root = directory_.path();
    facts.resources = GEXLO_RESOURCES;
    facts.timeZone = "Asia/Seoul";
    restart();
}

Phone::~Phone() {
    quit();
    checkLog();
}

void Phone::launch() {
    UIApplication::sharedApplication().launch(GXAppDelegate::delegate());
}

void Phone::quit() {
    if (!device_) return;
    UIApplication::sharedApplication().terminate();
    now_ = device_->clock().now().timeIntervalSince1970();
    device_.reset();
}

void Phone::restart() {
    quit();
    device_ = std::make_unique<Device>(
        facts, Clock::standingAt(NSDate::dateWithTimeIntervalSince1970(now_)), services);
    device_->log().setSink([this](const std::string& line) { log_.push_back(line); });
}

void Phone::relaunch() {
    restart();
    launch();
}

void Phone::launchAt(const std::string& localTime) {
    quit();
    const NSCalendar calendar = NSCalendar::calendarInTimeZone(facts.timeZone);
    now_ = dateFromLocalTime(localTime, calendar).value().timeIntervalSince1970();
    relaunch();
}

void Phone::upgrade(const std::string& bundleVersion) {
    facts.bundleVersion = bundleVersion;
    relaunch();
}

void Phone::advance(NSTimeInterval seconds) {
    device_->mainQueue().advanceTo(device_->clock().now().dateByAddingTimeInterval(seconds));
}

void Phone::background() {
    UIApplication::sharedApplication().enterBackground();
}

GXLessonData& Phone::addSubject(const std::string& name, const std::vector<Slot>& slots) {
    return addSubject(timetable(), name, slots);
}

GXLessonData& Phone::addSubject(GXTimetableData& timetable, const std::string& name,
                                const std::vector<Slot>& slots) {
    GXLessonData& lesson = manager().addNewLessonInTimetable(timetable);
    lesson.name = name;
    for (const Slot& slot : slots)
        place(lesson, slot);
    manager().saveContext();
    return lesson;
}

GXDayNPeriodData& Phone::place(GXLessonData& lesson, const Slot& slot) {
    GXDayNPeriodData& placement = manager().addNewDayNPeriod();
    placement.day = slot.day;
    placement.period = slot.period;
    placement.week = slot.week;
    placement.room.clear();
    if (slot.room) placement.room = slot.room;
    lesson.times.addObject(placement);
    return placement;
}

GXHomeworkData& Phone::addHomework(GXLessonData& lesson, const std::string& title) {
    GXHomeworkData& homework = manager().addNewHomework();
    homework.title = title;
    homework.index = static_cast<NSInteger>(lesson.homework.count());
    lesson.homework.addObject(homework);
    manager().saveContext();
    return homework;
}

GXClasstimeData& Phone::addClasstime(GXTimetableData& timetable, const Slot& slot, NSInteger hour,
                                     NSInteger minute) {
    auto& row = manager().addNewData<GXClasstimeData>();
    row.week = slot.week;
    row.period = slot.period;
    row.beginHour = hour;
    row.beginMin = minute;
    row.endHour = kNotSet;
    row.endMin = kNotSet;
    timetable.classtimes.addObject(row);
    return row;
}

void Phone::checkLog() const {
    for (const std::string& line : log_) {
        EXPECT_TRUE(isAmong(line, kUsualLines) || isAmong(line, expected_))
            << "In the log: " << line;
    }
}

}  // namespace gexlo::test
