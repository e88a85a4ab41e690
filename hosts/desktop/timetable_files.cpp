#include "hosts/desktop/timetable_files.h"

#include <QDir>
#include <QStandardPaths>
#include <algorithm>
#include <string_view>

#include "exchange/exchange_format.h"
#include "exchange/exchange_writer.h"
#include "exchange/file_url.h"
#include "hosts/drawing/qt_values.h"
#include "platform/foundation/bundle.h"
#include "platform/foundation/device.h"
#include "platform/foundation/string_format.h"
#include "platform/foundation/utf8.h"
#include "platform/views/alert.h"
#include "presentation/ui_manager.h"
#include "store/data_manager.h"

namespace gexlo {

namespace {

/// Bytes that leave room for the extension, and for the one of a file that is being written.
constexpr std::size_t kLongestName = 200;

bool isUnsafe(char c) {
    constexpr std::string_view kSpecial = "/\\:*?\"<>|\x7f";
    return static_cast<unsigned char>(c) < ' ' || kSpecial.find(c) != std::string_view::npos;
}

void tellFailure(const std::filesystem::path& path, const std::string& reason) {
    UIAlert::notice(NSLocalizedString("SAVE_FILE_FAILED_TITLE"),
                    stringWithFormat(NSLocalizedString("SAVE_FILE_FAILED_COMMENT"),
                                     path.filename().string(), reason),
                    NSLocalizedString("OK_BUTTON"))
        .show();
}

void write(const std::filesystem::path& path) {
    const GXTimetableData* timetable = GXDataManager::manager().currentTimetableData();
    if (!timetable) return;
    auto code = static_cast<std::int32_t>(ExportError::unknown);
    const auto file =
        GXUIManager::manager().generateDataFileFromTimetable_errorCode(*timetable, &code);
    if (!file) return tellFailure(path, exportMessage(static_cast<ExportError>(code)));
    const std::string_view bytes(reinterpret_cast<const char*>(file->data()), file->size());
    if (const auto wrong = writeFileAtomically(path, bytes)) tellFailure(path, *wrong);
}

void askToReplace(const std::filesystem::path& path) {
    UIAlert alert;
    alert.title = NSLocalizedString("REPLACE_FILE_TITLE");
    alert.message =
        stringWithFormat(NSLocalizedString("REPLACE_FILE_COMMENT"), path.filename().string());
    alert.buttons = {
        {NSLocalizedString("CANCEL_BUTTON"), UIAlert::Button::Style::cancel},
        {NSLocalizedString("REPLACE_FILE_BUTTON"), UIAlert::Button::Style::destructive}};
    alert.dismissed = [path](std::size_t button, const std::vector<UIAlert::Field>&) {
        if (button == 1) write(path);
    };
    std::move(alert).show();
}

}  // namespace

std::string fileNameFor(const std::string& timetable) {
    std::string name = timetable;
    std::replace_if(name.begin(), name.end(), isUnsafe, '-');
    while (name.size() > kLongestName || !isValidUtf8(name))
        name.pop_back();
    // A leading dot hides a file, blanks at an end are lost on the way.
    const auto begin = name.find_first_not_of(". ");
    name = begin == std::string::npos ? NSLocalizedString("APP_NAME") : name.substr(begin);
    name.erase(name.find_last_not_of(' ') + 1);
    return name.append(exchange_format::kFileSuffix);
}

QString TimetableFiles::text(const QString& key) const {
    return qtText(NSLocalizedString(key.toStdString()));
}

bool TimetableFiles::canSave() const {
    return GXDataManager::manager().currentTimetableData() != nullptr;
}

QUrl TimetableFiles::documents() const {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QUrl::fromLocalFile(QDir(documents).exists() ? documents : QDir::homePath());
}

QUrl TimetableFiles::proposedFile(const QUrl& directory) const {
    const GXTimetableData* timetable = GXDataManager::manager().currentTimetableData();
    const QString name = qtText(fileNameFor(timetable ? timetable->name.get() : ""));
    return QUrl::fromLocalFile(directory.toLocalFile() + '/' + name);
}

void TimetableFiles::open(const QUrl& file) {
    receive_(file.toEncoded().toStdString());
}

void TimetableFiles::save(const QUrl& file) {
    Device::current().perform([&] {
        const auto path = pathOfFileURL(file.toEncoded().toStdString());
        std::error_code error;
        if (!path) {
            tellFailure(file.toString().toStdString(), "");
        } else if (std::filesystem::exists(*path, error)) {
            askToReplace(*path);
        } else {
            write(*path);
        }
    });
}

}  // namespace gexlo
