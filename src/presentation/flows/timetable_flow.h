// Choosing among timetables, and changing the settings of one.
#pragma once

namespace gexlo {

class TimetableFlow {
public:
    virtual ~TimetableFlow() = default;
    virtual void openTimetableList() = 0;
    virtual void openSettingView() = 0;
};

}  // namespace gexlo
