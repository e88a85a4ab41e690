// Making, copying and removing timetables, the starting one, and counting changes.
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

/// A user's image is a file of its own timetable and cannot be copied along.
bool isUserImage(const std::string& background) {
    return background == "from_album" || background == "new_photo_from_album";
}

/// Takes over the members that are named, absence included.
template <typename Class, typename... Members>
void copyMembers(Class& copy, const Class& source, Members Class::*... members) {
    ((copy.*members).copyFrom(source.*members), ...);
}

void copySettings(GXTimetableData& copy, const GXTimetableData& source) {
    using T = GXTimetableData;
    // `textSize` does not come along: the copy has none, and readers get 0.
    copyMembers(copy, source, &T::numWeeks, &T::firstDay, &T::lastDay, &T::firstPeriod,
                &T::lastPeriod, &T::daysToNumbers, &T::daysOnLeft, &T::useHalfPeriods,
                &T::showClasstimes, &T::useSameClasshours, &T::colorBorder, &T::alphaBorder,
                &T::colorTableBack, &T::alphaTableBack, &T::colorDaysBack, &T::alphaDaysBack,
                &T::colorDaysFont, &T::colorPeriodsBack, &T::alphaPeriodsBack, &T::colorPeriodsFont,
                &T::alphaSubject, &T::useAbsenceCounting);
}

void copyClasstime(GXClasstimeData& copy, const GXClasstimeData& source) {
    using T = GXClasstimeData;
    copyMembers(copy, source, &T::week, &T::name, &T::shortName, &T::period, &T::beginHour,
                &T::beginMin, &T::endHour, &T::endMin);
}

void copySubject(GXLessonData& copy, const GXLessonData& source) {
    using T = GXLessonData;
    copyMembers(copy, source, &T::name, &T::color, &T::fontColor, &T::rgbRed, &T::rgbGreen,
                &T::rgbBlue, &T::room1, &T::room2, &T::room3);
    if (source.professor && copy.professor) copy.professor->name.copyFrom(source.professor->name);
}

void copyPlacement(GXDayNPeriodData& copy, const GXDayNPeriodData& source) {
    using T = GXDayNPeriodData;
    copyMembers(copy, source, &T::week, &T::day, &T::period, &T::room);
}

}  // namespace

/// The next number that was never given, as identity and as the top of the list.
void GXDataManager::giveNextIndex(GXTimetableData& timetable) {
    GXAppSettingData& setting = appSettingData();
    setting.lastTimetableIndex = setting.lastTimetableIndex.get() + 1;
    timetable.index = setting.lastTimetableIndex.get();
    timetable.sortIndex = setting.lastTimetableIndex.get();
}

GXTimetableData& GXDataManager::addNewTimetable() {
    auto& timetable = addNewData<GXTimetableData>();
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
    giveNextIndex(timetable);
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
    giveNextIndex(copy);
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
    if (GXTimetableData* timetable = timetableData(index)) {
        // Scheduled notifications do not follow the store.
        clearAlarms(*timetable);
        removeData(*timetable);
    }
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
