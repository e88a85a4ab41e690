// Memo, homework and exams: of one subject, and the lists of all.
#pragma once

namespace gexlo {

class ScheduleFlow {
public:
    virtual ~ScheduleFlow() = default;

    // The three panels of a subject, between which the title view switches.
    virtual void titleViewMemoAction() = 0;
    virtual void titleViewHomeworkAction() = 0;
    virtual void titleViewExamAction() = 0;
    /// Closes whichever of them is open.
    virtual void closeScheduleView() = 0;

    // The lists of the whole timetable.
    virtual void openAssignListView() = 0;
    virtual void openExamListView() = 0;
};

}  // namespace gexlo
