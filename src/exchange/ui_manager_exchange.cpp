// Sending a timetable, and taking one in.
#include "exchange/exchange_format.h"
#include "exchange/exchange_reader.h"
#include "exchange/exchange_writer.h"
#include "exchange/timetable_import.h"
#include "platform/foundation/bundle.h"
#include "platform/foundation/date_formatter.h"
#include "platform/foundation/device.h"
#include "platform/foundation/log.h"
#include "platform/foundation/notification_center.h"
#include "platform/foundation/string_format.h"
#include "platform/services/mail_composer.h"
#include "presentation/notifications.h"
#include "presentation/ui_manager.h"
#include "store/data_manager.h"

namespace gexlo {

namespace {

constexpr const char* kDataFile = "timetable_data_file.gexlo";
constexpr const char* kStorePage = "https://gexlo.example/iphone";

std::string mailBody(const GXTimetableData& timetable) {
    const std::string line(28, '=');
    return stringWithFormat("%@\n\n\n%@\n  %@ for iPhone\n  App Store  :  %s\n%@",
                            timetable.name.get(), line, NSLocalizedString("APP_NAME"), kStorePage,
                            line);
}

std::string attachmentName() {
    NSDateFormatter formatter;
    formatter.setDateFormat("yyyyMMdd'.gexlo'");
    return formatter.stringFromDate(NSDate::date());
}

}  // namespace

std::optional<NSData> GXUIManager::generateDataFileFromTimetable_errorCode(
    const GXTimetableData& timetable, std::int32_t* errorCode) {
    const NSURL path = Device::current().facts().temporaryDirectory() / kDataFile;
    ExportError error = ExportError::unknown;
    const bool isWritten = writeExchangeFile(timetable, path, error);
    if (errorCode && error != ExportError::unknown) *errorCode = static_cast<std::int32_t>(error);
    if (!isWritten) return std::nullopt;
    const std::optional<std::string> bytes = contentsOfFile(path);
    if (!bytes) return std::nullopt;
    return NSData(bytes->begin(), bytes->end());
}

void GXUIManager::openExportView() {
    if (!MFMailComposeViewController::canSendMail()) return;
    auto errorCode = static_cast<std::int32_t>(ExportError::unknown);
    const GXTimetableData* timetable = GXDataManager::manager().currentTimetableData();
    std::optional<NSData> file;
    if (timetable) file = generateDataFileFromTimetable_errorCode(*timetable, &errorCode);
    if (!file) {
        showAlertView_message("Error", exportMessage(static_cast<ExportError>(errorCode)));
        lockMenu(false);
        return;
    }
    MFMailComposeViewController composer;
    composer.setSubject(NSLocalizedString("APP_NAME") + NSLocalizedString("MAIL_DATA_FILE"));
    composer.setMessageBody(mailBody(*timetable));
    composer.addAttachmentData_mimeType_fileName(std::move(*file), exchange_format::kMimeType,
                                                 attachmentName());
    composer.setFinished([](MFMailComposeResult) { manager().lockMenu(false); });
    std::move(composer).present();
}

std::int32_t GXUIManager::openTimetableFromDataFile(const std::string& url) {
    NSLog("%@", url);
    ExchangeTimetable file;
    ImportStatus status = readExchangeFile(url, file);
    GXDataManager& data = GXDataManager::manager();
    const bool isFull = data.timetableList().size() >= GXDataManager::kMostTimetables;
    if (status == ImportStatus::imported && isFull) {
        status = ImportStatus::tooManyTimetables;
    }
    if (status != ImportStatus::imported) return static_cast<std::int32_t>(status);
    data.setCurrentTimetableNo(importTimetable(file).index.get());
    setCurrentTimetable();
    NSNotificationCenter::defaultCenter().postNotificationName(GX_NOTI_CLOSE_ALL_SUBVIEWS);
    // Not every panel frees the menu when it is closed this way.
    lockMenu(false);
    return static_cast<std::int32_t>(status);
}

}  // namespace gexlo
