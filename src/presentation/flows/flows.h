// What the main screen leads to, parted by what a person is about to do there.
#pragma once

#include <tuple>

namespace gexlo {

class AttendanceFlow;
class ClassHourFlow;
class CommunityFlow;
class LessonFlow;
class ScheduleFlow;
class ShareFlow;
class TimetableFlow;

/// One of each; null for one whose panels are not there, so that what leads there does nothing.
using Flows = std::tuple<AttendanceFlow*, ClassHourFlow*, CommunityFlow*, LessonFlow*,
                         ScheduleFlow*, ShareFlow*, TimetableFlow*>;

}  // namespace gexlo
