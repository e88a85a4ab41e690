// Making, copying and removing timetables, the starting one, and counting changes.
#include <array>

#include "platform/foundation/bundle.h"
#include "platform/foundation/user_defaults.h"
#include "store/app_local.h"
#include "store/data_manager.h"
#include "store/user_default_keys.h"

namespace gexlo {

namespace {

/// From here on `startingTimetable` means "the one last used", with its `index` added.
constexpr NSInteger kLastUsedCode = 1000;
constexpr const char* kPlainBackground = "#F3F0EC";

NSInteger takeNextTimetableIndex(GXAppSettingData& setting) {
    setting.lastTimetableIndex = setting.lastTimetableIndex.get() + 1;
    return setting.lastTimetableIndex.get();
}

void setIdentity(GXTimetableData& timetable, NSInteger index) {
    timetable.index = index;
    timetable.sortIndex = index;
}

/// A user's image is a file of its own timetable and cannot be copied along.
bool isUserImage(const std::string& background) {
    return background == "from_album" || background == "new_photo_from_album";
}

/// Members of a class that a copy takes over, walked as a table.
template <typename Class, typename T, std::size_t count>
void copyMembers(Class& copy, const Class& source,
                 const std::array<Attribute<T> Class::*, count>& members) {
    for (const auto member : members)
        (copy.*member).copyFrom(source.*member);
}

void copySettings(GXTimetableData& copy, const GXTimetableData& source) {
    using T = GXTimetableData;
    copyMembers(
        copy, source,
        std::array{&T::numWeeks, &T::firstDay, &T::lastDay, &T::firstPeriod, &T::lastPeriod});
    copyMembers(copy, source,
                std::array{&T::daysToNumbers, &T::daysOnLeft, &T::useHalfPeriods,
                           &T::showClasstimes, &T::useSameClasshours, &T::useAbsenceCounting});
    copyMembers(copy, source,
                std::array{&T::colorBorder, &T::colorTableBack, &T::colorDaysBack,
                           &T::colorDaysFont, &T::colorPeriodsBack, &T::colorPeriodsFont});
    copyMembers(copy, source,
                std::array{&T::alphaBorder, &T::alphaTableBack, &T::alphaDaysBack,
                           &T::alphaPeriodsBack, &T::alphaSubject});
    // `textSize` does not come along: the copy has none, and readers get 0.
}

void copyClasstime(GXClasstimeData& copy, const GXClasstimeData& source) {
    using T = GXClasstimeData;
    copyMembers(copy, source,
                std::array{&T::week, &T::beginHour, &T::beginMin, &T::endHour, &T::endMin});
    copyMembers(copy, source, std::array{&T::name, &T::shortName});
    copyMembers(copy, source, std::array{&T::period});
}

void copySubject(GXLessonData& copy, const GXLessonData& source) {
    using T = GXLessonData;
    copyMembers(copy, source,
                std::array{&T::name, &T::color, &T::fontColor, &T::room1, &T::room2, &T::room3});
    copyMembers(copy, source, std::array{&T::rgbRed, &T::rgbGreen, &T::rgbBlue});
    if (source.professor && copy.professor) copy.professor->name.copyFrom(source.professor->name);
}

void copyPlacement(GXDayNPeriodData& copy, const GXDayNPeriodData& source) {
    using T = GXDayNPeriodData;
    copyMembers(copy, source, std::array{&T::week, &T::day});
    copyMembers(copy, source, std::array{&T::period});
    copyMembers(copy, source, std::array{&T::room});
}

}  // namespace

GXTimetableData& GXDataManager::addNewTimetable() {
    auto& timetable = addNewData<GXTimetableData>();
    const NSInteger index = takeNextTimetableIndex(appSettingData());
    timetable.backgroundImage = kPlainBackground;
    timetable.name = NSLocalizedString("NEW_TIMETABLE");
    timetable.numWeeks = 1;
    timetable.firstDay = 1;
    timetable.lastDay = 5;
    timetable.firstPeriod = 1;
    timetable.lastPeriod = 9;
    timetable.daysToNumbers = false;
    timetable.daysOnLeft = false;
    timetable.useHalfPeriods = false;
    timetable.showClasstimes = false;
    timetable.useSameClasshours = true;
    timetable.textSize = 10;
    setIdentity(timetable, index);
    timetable.colorBorder = "#191919";
    timetable.alphaBorder = 0.8F;
    timetable.colorTableBack = "#FFFFFF";
    timetable.alphaTableBack = 0.3F;
    timetable.colorDaysBack = "#666666";
    timetable.alphaDaysBack = 0.8F;
    timetable.colorDaysFont = "#FFFFFF";
    timetable.colorPeriodsBack = "#FFFFFF";
    timetable.alphaPeriodsBack = 0.6F;
    timetable.colorPeriodsFont = "#191919";
    timetable.alphaSubject = 0.95F;
    timetable.useAbsenceCounting = GXAppLocal::appLocal().isJapanease();
    saveContext();
    return timetable;
}

GXTimetableData& GXDataManager::copyTimetableFromTimetableNo(NSInteger index) {
    const GXTimetableData* source = timetableData(index);
    auto& copy = addNewData<GXTimetableData>();
    setIdentity(copy, takeNextTimetableIndex(appSettingData()));
    const std::string name = source ? source->name.get() : "";
    copy.name = stringWithFormat("%@ %@", name, NSLocalizedString("COPY"));
    if (!source) {
        saveContext();
        return copy;
    }
    if (isUserImage(source->backgroundImage.get())) {
        copy.backgroundImage = kPlainBackground;
    } else {
        copy.backgroundImage.copyFrom(source->backgroundImage);
    }
    copySettings(copy, *source);
    for (const GXClasstimeData* classtime : source->classtimes) {
        auto& row = addNewData<GXClasstimeData>();
        copyClasstime(row, *classtime);
        copy.classtimes.addObject(row);
    }
    for (const GXLessonData* lesson : source->lessons) {
        GXLessonData& subject = addNewLessonInTimetable(copy);
        copySubject(subject, *lesson);
        for (const GXDayNPeriodData* time : lesson->times) {
            GXDayNPeriodData& placement = addNewDayNPeriod();
            copyPlacement(placement, *time);
            subject.times.addObject(placement);
        }
    }
    saveContext();
    return copy;
}

void GXDataManager::removeTimetable(NSInteger index) {
    // Scheduled notifications do not follow the store: the alarms of what hangs under the
    // timetable are to be cleared before this.
    if (GXTimetableData* timetable = timetableData(index)) removeData(*timetable);
    saveContext();
}

NSInteger GXDataManager::startingTimetableNo() {
    const NSInteger code = appSettingData().startingTimetable.get();
    return code < kLastUsedCode ? code : code - kLastUsedCode;
}

bool GXDataManager::fixedStartingTimetable() {
    return appSettingData().startingTimetable.get() < kLastUsedCode;
}

void GXDataManager::setStartingTimetable_fixed(NSInteger index, bool fixed) {
    appSettingData().startingTimetable = fixed ? index : index + kLastUsedCode;
    saveContext();
}

NSInteger GXDataManager::getDataUpdateNo() {
    NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
    const NSInteger number = defaults.integerForKey(user_default::kDataUpdateNo);
    if (number != 0) return number;
    defaults.setInteger_forKey(1, user_default::kDataUpdateNo);
    timetableUpdateNoUp();
    return 1;
}

NSInteger GXDataManager::getTimetableUpdateNo(NSInteger index) const {
    return NSUserDefaults::standardUserDefaults().integerForKey(
        user_default::timetableUpdateNo(index));
}

void GXDataManager::dataUpdateNoUp() {
    NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
    const NSInteger number = defaults.integerForKey(user_default::kDataUpdateNo);
    defaults.setInteger_forKey(number + 1, user_default::kDataUpdateNo);
    timetableUpdateNoUp();
}

void GXDataManager::timetableUpdateNoUp() {
    timetableUpdateNoUp(currentTimetableNo_);
}

void GXDataManager::timetableUpdateNoUp(NSInteger index) {
    NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
    defaults.setInteger_forKey(getTimetableUpdateNo(index) + 1,
                               user_default::timetableUpdateNo(index));
    defaults.synchronize();
}

}  // namespace gexlo
