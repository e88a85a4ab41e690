// What the data manager does at every start: versions, and repair of doubled rows.
#include <algorithm>

#include "platform/foundation/bundle.h"
#include "platform/foundation/user_defaults.h"
#include "platform/foundation/utf8.h"
#include "store/data_manager.h"
#include "store/user_default_keys.h"

namespace gexlo {

namespace {

/// Versions below it may have doubled rows and never have been cleaned.
constexpr NSInteger kFirstCleanVersion = 41;

/// What two timetables of one `index` must agree on to count as the same.
struct TimetableContent {
    std::string name;
    std::size_t lessons = 0;
    std::size_t items = 0;       // of all subjects
    std::size_t memoLength = 0;  // of the first memo of each subject

    explicit TimetableContent(const GXTimetableData& timetable)
        : name(timetable.name.get()), lessons(timetable.lessons.count()) {
        for (const GXLessonData* lesson : timetable.lessons) {
            items += lesson->homework.count() + lesson->exam.count();
            if (const GXMemoData* memo = lesson->memo.anyObject()) {
                memoLength += utf16Length(memo->content.get());
            }
        }
    }

    bool operator==(const TimetableContent&) const = default;
};

/// Whether the kept row stands against one that is walked later; a full tie goes to the latter.
bool keeps(const GXAppSettingData& kept, const GXAppSettingData& walked) {
    if (kept.lastLessonIndex.get() != walked.lastLessonIndex.get()) {
        return kept.lastLessonIndex.get() > walked.lastLessonIndex.get();
    }
    return kept.startingTimetable.get() > walked.startingTimetable.get();
}

}  // namespace

void GXDataManager::initSingleton() {
    currentTimetableNo_ = 0;
    setContext(managedObjectContext());
    versionInfo_.reset();
    noteVersion();
    cleanOverlapData2();
}

void GXDataManager::noteVersion() {
    namespace key = user_default;
    NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
    const std::string current =
        NSBundle::mainBundle().objectForInfoDictionaryKey("CFBundleVersion");
    const Object stored = defaults.objectForKey(key::kAppVersion);

    if (!stored.isAbsent()) {
        const std::string version = stored.stringValue();
        if (version != current) {
            versionInfo_ = stringWithFormat("%@ to %@", version, current);
            defaults.setObject_forKey(version, key::kPreAppVersion);
            defaults.setObject_forKey(current, key::kAppVersion);
            defaults.setInteger_forKey(1, key::kNowUpdated);
            defaults.synchronize();
        }
        if (integerValueOf(version) < kFirstCleanVersion) cleanOverlapData();
        return;
    }

    // Read past the list operations: here a fetch that fails counts as no rows.
    std::optional<NSError> ignored;
    const auto rows =
        context()->executeFetchRequest({.entityName = GXAppSettingData::entity.name}, ignored);
    defaults.setObject_forKey(current, key::kAppVersion);
    if (rows.empty()) {
        versionInfo_ = stringWithFormat("NEW INSTALL : %@", current);
    } else {
        const auto& setting = static_cast<const GXAppSettingData&>(*rows.front());
        versionInfo_ = stringWithFormat("%.01f to %@", setting.dataVersion.get(), current);
        defaults.setInteger_forKey(1, key::kNowUpdated);
    }
    defaults.synchronize();
}

void GXDataManager::cleanOverlapData() {
    keepOneAppSetting();
    separateTimetableTwins();
}

void GXDataManager::cleanOverlapData2() {
    cleanOverlapData();
}

void GXDataManager::keepOneAppSetting() {
    appSettingData();
    const auto rows = dataList<GXAppSettingData>();
    GXAppSettingData* kept = rows.front();
    for (std::size_t i = 1; i < rows.size(); ++i) {
        GXAppSettingData* loser = rows[i];
        if (!keeps(*kept, *rows[i])) std::swap(kept, loser);
        removeData(*loser);
    }
}

void GXDataManager::separateTimetableTwins() {
    std::vector<GXTimetableData*> timetables = timetableList();
    for (std::size_t i = 0; i < timetables.size(); ++i) {
        GXTimetableData& timetable = *timetables[i];
        bool hasTwin = false;
        for (std::size_t j = timetables.size() - 1; j > i; --j) {
            GXTimetableData& other = *timetables[j];
            if (other.index.get() != timetable.index.get()) continue;
            hasTwin = true;
            if (TimetableContent(other) != TimetableContent(timetable)) continue;
            removeData(other);
            timetables.erase(timetables.begin() + static_cast<std::ptrdiff_t>(j));
        }
        if (!hasTwin) continue;
        // Alarms and attendance that hold the old number keep it.
        giveNextIndex(timetable);
        saveContext();
    }
}

}  // namespace gexlo
