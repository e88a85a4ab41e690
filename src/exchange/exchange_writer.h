// Writes a timetable into an exchange file.
#pragma once

#include <cstdint>
#include <string>

#include "platform/foundation/file_manager.h"

namespace gexlo {

class GXTimetableData;

/// How an export fails.
enum class ExportError : std::int32_t {
    unknown = 10,  ///< what it counts as until it is known better
    cannotOpen = 16,
    cannotCreate = 17,
    cannotWrite = 18,
};

/// What a person is told of it, in English everywhere.
std::string exportMessage(ExportError error);

/// Writes the file anew; whether it is whole enough to be sent. A row of a subject or item that
/// cannot be written sets the error and is left out. What no reader would take in whole is not
/// sent at all: it fails as one that cannot be written.
[[nodiscard]] bool writeExchangeFile(const GXTimetableData& timetable, const NSURL& path,
                                     ExportError& error);

}  // namespace gexlo
