// Makes a timetable of the store out of what a file holds.
#pragma once

namespace gexlo {

class GXTimetableData;
struct ExchangeTimetable;

/// A new timetable with fresh identifiers, no alarms and the settings of a new one where the
/// file has none. It starts the application from now on if no other was fixed for that. Saves.
GXTimetableData& importTimetable(const ExchangeTimetable& file);

}  // namespace gexlo
