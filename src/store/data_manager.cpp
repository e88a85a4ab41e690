#include "store/data_manager.h"

#include "platform/foundation/device.h"
#include "platform/foundation/file_manager.h"
#include "store/define_values.h"

namespace gexlo {

namespace {

constexpr const char* kStoreFile = "Vetra.sqlite";
constexpr StoreOptions kStoreOptions{.migratePersistentStoresAutomatically = true,
                                     .inferMappingModelAutomatically = true};

/// Opens the store in the documents directory and moves what it holds to the group's.
/// Whether the move was made; a failure shows at the first fetch.
bool openAndMove(NSPersistentStoreCoordinator& coordinator, const NSURL& documents,
                 const NSURL& group) {
    const NSURL documentsStore = documents / kStoreFile;
    if (coordinator.addPersistentStoreWithType_URL_options(NSSQLiteStoreType, documentsStore,
                                                           kStoreOptions)) {
        return false;
    }
    NSPersistentStore* store = coordinator.persistentStoreForURL(documentsStore);
    if (!store) return false;
    return !coordinator.migratePersistentStore_toURL_options_withType(
        *store, group / kStoreFile, kStoreOptions, NSSQLiteStoreType);
}

void removeMovedStore(const NSURL& documents) {
    const NSFileManager& files = NSFileManager::defaultManager();
    const NSURL moved = documents / kStoreFile;
    if (!files.isDeletableFileAtPath(moved)) return;
    if (const auto error = files.removeItemAtPath(moved)) NSLog("%@", *error);
    // What SQLite keeps beside a database goes with it.
    for (const char* suffix : {"-wal", "-shm"}) {
        NSURL beside = moved;
        beside += suffix;
        if (!files.fileExistsAtPath(beside)) continue;
        if (const auto error = files.removeItemAtPath(beside)) NSLog("%@", *error);
    }
}

}  // namespace

GXDataManager& GXDataManager::manager() {
    return Device::current().singleton<GXDataManager>();
}

GXDataManager::~GXDataManager() = default;

NSManagedObjectContext* GXDataManager::managedObjectContext() {
    if (!managedObjectContext_) {
        managedObjectContext_ =
            std::make_unique<NSManagedObjectContext>(persistentStoreCoordinator());
    }
    return managedObjectContext_.get();
}

const NSManagedObjectModel& GXDataManager::managedObjectModel() const {
    return vetraModel();
}

NSPersistentStoreCoordinator& GXDataManager::persistentStoreCoordinator() {
    if (persistentStoreCoordinator_) return *persistentStoreCoordinator_;
    persistentStoreCoordinator_ =
        std::make_unique<NSPersistentStoreCoordinator>(managedObjectModel());
    const NSURL documents = applicationDocumentsDirectory();
    const bool moved =
        openAndMove(*persistentStoreCoordinator_, documents, applicationGroupDirectory());
    if (moved && NSFileManager::defaultManager().offersGroupContainers())
        removeMovedStore(documents);
    return *persistentStoreCoordinator_;
}

NSURL GXDataManager::applicationDocumentsDirectory() const {
    return NSFileManager::defaultManager().documentDirectory();
}

NSURL GXDataManager::applicationGroupDirectory() const {
    return NSFileManager::defaultManager()
        .containerURLForSecurityApplicationGroupIdentifier(DefineValues::shared().APP_GROUP)
        .value_or(applicationDocumentsDirectory());
}

void GXDataManager::migrationAppDataToAppGroup() const {
    NSPersistentStoreCoordinator coordinator(managedObjectModel());
    openAndMove(coordinator, applicationDocumentsDirectory(), applicationGroupDirectory());
}

GXAppSettingData& GXDataManager::appSettingData() {
    const auto rows = dataList<GXAppSettingData>();
    if (!rows.empty()) return *rows.front();
    auto& setting = addNewData<GXAppSettingData>();
    setting.dataVersion = kDataVersion;
    setting.startingTimetable = 0;
    setting.lastLessonIndex = -1;
    setting.lastTimetableIndex = -1;
    return setting;
}

GXTimetableData* GXDataManager::timetableData(NSInteger index) {
    return firstData<GXTimetableData>({"index", index});
}

GXTimetableData* GXDataManager::timetableDataWithSortIndex(NSInteger sortIndex) {
    return firstData<GXTimetableData>({"sortIndex", sortIndex});
}

GXTimetableData* GXDataManager::currentTimetableData() {
    return timetableData(currentTimetableNo_);
}

std::vector<GXTimetableData*> GXDataManager::timetableList() {
    return typed<GXTimetableData>(dataListWithEntityName_sortingKey_ascending(
        GXTimetableData::entity.name, "sortIndex", false));
}

}  // namespace gexlo
