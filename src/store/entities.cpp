#include "store/entities.h"

namespace gexlo {

const NSManagedObjectModel& vetraModel() {
    static const auto model =
        NSManagedObjectModel::of<GXAppSettingData, GXTimetableData, GXLessonData, GXDayNPeriodData,
                                 GXClasstimeData, GXMemoData, GXProfessorData, GXHomeworkData,
                                 GXExamData>();
    return model;
}

}  // namespace gexlo
