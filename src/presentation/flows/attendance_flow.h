// Counting the absences of a subject.
#pragma once

namespace gexlo {

class GXLessonData;

class AttendanceFlow {
public:
    virtual ~AttendanceFlow() = default;
    virtual void openAbsenceCountView(GXLessonData* lesson) = 0;
};

}  // namespace gexlo
