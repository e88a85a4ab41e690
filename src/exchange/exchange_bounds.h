// How far an exchange file may go: further than a timetable of this application comes, and not so
// far that a stranger's keeps the phone busy. What is sent is held to the same, so that it can be
// taken in again.
#pragma once

#include <algorithm>
#include <cstddef>

#include "platform/foundation/types.h"

namespace gexlo {

/// What a file holds, counted while it is read or written.
class ExchangeBounds {
public:
    static constexpr NSInteger kMostRows = 60'000;
    /// More than the largest grid has cells.
    static constexpr NSInteger kMostLessons = 2'500;
    static constexpr std::size_t kMostText = std::size_t{64} << 20;  // bytes, of all texts

    /// False from when anything has gone too far.
    bool areKept() const { return areKept_; }
    void leave() { areKept_ = false; }
    void takeLesson() { take(lessonsLeft_, NSInteger{1}); }
    /// Rows, or what becomes as many.
    void takeRows(NSInteger count) { take(rowsLeft_, std::max(count, NSInteger{0})); }
    void takeText(std::size_t bytes) { take(textLeft_, bytes); }

private:
    template <typename Count>
    void take(Count& left, Count count) {
        if (count > left) return leave();
        left -= count;
    }

    bool areKept_ = true;
    NSInteger rowsLeft_ = kMostRows;
    NSInteger lessonsLeft_ = kMostLessons;
    std::size_t textLeft_ = kMostText;
};

}  // namespace gexlo
