// A phone to play with: a directory of its own and a clock that stands until it is turned.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/foundation/device.h"
#include "store/data_manager.h"

namespace gexlo::test {

/// Where a subject is placed: the day, and the period of it.
struct Slot {
    NSInteger day;
    float period;
    NSInteger week = 0;
    const char* room = "";  ///< null for none at all
};
constexpr Slot mon(float period, NSInteger week = 0) {
    return {1, period, week};
}
constexpr Slot tue(float period, NSInteger week = 0) {
    return {2, period, week};
}
constexpr Slot wed(float period, NSInteger week = 0) {
    return {3, period, week};
}
/// `in("B12", mon(1))`.
constexpr Slot in(const char* room, Slot slot) {
    slot.room = room;
    return slot;
}

/// A directory that goes with its holder.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// Switched on from construction to end. Its directory outlives every quit, and goes with it.
class Phone {
public:
    /// Monday, 2 March 2026, 08:00 in Seoul.
    static constexpr NSTimeInterval kStart = 1772406000;

    Phone();
    ~Phone();
    Phone(const Phone&) = delete;
    Phone& operator=(const Phone&) = delete;

    /// The facts of the next start: `phone.facts.languages = {"ja"}; phone.restart();`.
    DeviceFacts facts;
    HostServices services;  ///< of the next start, too
    std::filesystem::path storeFile() const { return facts.root / "Group" / "Vetra.sqlite"; }

    void launch();
    /// Ends the process as the platform would, all singletons with it.
    void quit();
    /// Quits if it runs, and switches on again without a launch.
    void restart();
    void relaunch();
    /// Quits, and launches at a local time of the zone, which may lie before now.
    void launchAt(const std::string& localTime);
    /// Quits, installs another bundle version over the same files, and launches.
    void upgrade(const std::string& bundleVersion);
    void advance(NSTimeInterval seconds);
    void background();

    GXDataManager& manager() { return GXDataManager::manager(); }
    GXTimetableData& timetable() { return *manager().currentTimetableData(); }
    /// Adds a subject to the current timetable, saved.
    GXLessonData& addSubject(const std::string& name, const std::vector<Slot>& slots = {});
    GXLessonData& addSubject(GXTimetableData& timetable, const std::string& name,
                             const std::vector<Slot>& slots = {});
    /// Unsaved.
    GXDayNPeriodData& place(GXLessonData& lesson, const Slot& slot);
    GXHomeworkData& addHomework(GXLessonData& lesson, const std::string& title);
    GXClasstimeData& addClasstime(GXTimetableData& timetable, const Slot& slot, NSInteger hour,
                                  NSInteger minute);

    /// The log so far, without taking it. A line that is neither part of every run nor
    /// expected fails the test when the phone goes.
    const std::vector<std::string>& log() const { return log_; }
    void expectLog(const std::string& part) { expected_.push_back(part); }

private:
    void checkLog() const;

    TemporaryDirectory directory_;
    std::unique_ptr<Device> device_;
    NSTimeInterval now_ = kStart;
    std::vector<std::string> log_;
    std::vector<std::string> expected_;
};

/// "2026-03-02T08:00:00" in the device's zone, and back.
NSDate at(const std::string& localTime);
std::string localTime(NSDate date);

std::string readFile(const std::filesystem::path& file);
void writeFile(const std::filesystem::path& file, const std::string& contents);

}  // namespace gexlo::test
