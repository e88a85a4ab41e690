// How placements of one subject merge into blocks.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include "platform/foundation/types.h"

namespace gexlo {

/// The weekday of a stored day: 7 stands for Sunday too.
constexpr NSInteger weekdayOf(NSInteger day) {
    return day == 7 ? 0 : day;
}

/// A placement as merging sees it.
struct PlacedSlot {
    NSInteger week = 0;
    NSInteger day = 0;  ///< 0 Sunday to 6 Saturday
    float period = 0;
    /// Null for a placement without a room, which differs from every room and breaks a block.
    const std::string* room = nullptr;
};

/// The order of a subject's placements.
inline bool comesBefore(const PlacedSlot& left, const PlacedSlot& right) {
    return std::tie(left.week, left.day, left.period) <
           std::tie(right.week, right.day, right.period);
}

/// The rows of the grid by their numbers.
class PeriodAxis {
public:
    PeriodAxis() = default;
    /// Numbers ascending, from 0.
    PeriodAxis(std::vector<float> numbers, float realLastPeriod);

    NSInteger count() const { return static_cast<NSInteger>(numbers_.size()); }
    /// -1 for a number that no row has.
    NSInteger indexOf(float number) const {
        const float tenth = number * 10 + 0.5F;
        if (!(tenth >= 0 && tenth < static_cast<float>(rowsByTenth_.size()))) return -1;
        const NSInteger row = rowsByTenth_[static_cast<std::size_t>(tenth)];
        return row >= 0 && numbers_[static_cast<std::size_t>(row)] == number ? row : -1;
    }
    /// -1 for a row that is none.
    float number(NSInteger index) const;
    float realLastPeriod() const { return realLastPeriod_; }

private:
    std::vector<float> numbers_;
    std::vector<NSInteger> rowsByTenth_;  // the row nearest to a number's tenths, or -1
    float realLastPeriod_ = 0;
};

/// What a cell shows of the placement that stands on it.
struct Block {
    bool covered = false;  ///< by the block that begins before it
    int count = 1;         ///< rows that the block takes from here on
    bool operator==(const Block&) const = default;
};

// In these two the list holds all placements of one subject in their order.

/// The placement that shows on a slot: of several the last.
std::optional<std::size_t> placementOn(std::span<const PlacedSlot> placements, NSInteger week,
                                       NSInteger day, float period);

/// The block that a placement of the list makes on its row. A block is a run of consecutive
/// rows of one week, day and room.
Block blockAt(std::span<const PlacedSlot> placements, std::size_t position, NSInteger row,
              const PeriodAxis& axis);

}  // namespace gexlo
