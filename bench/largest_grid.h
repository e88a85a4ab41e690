// The largest grid: every day, every period with its half and its breaks, every slot taken.
#pragma once

#include <memory>

#include "large_store.h"

namespace gexlo::bench {

/// 60 subjects with 300 placements a week, for two weeks, in the store of the device installed.
void writeLargestGrid();

/// A device with the largest grid as its only timetable.
struct LargestGrid {
    LargestGrid();

    TemporaryRoot root;
    std::unique_ptr<Device> device;
};

}  // namespace gexlo::bench
