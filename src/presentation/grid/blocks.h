// How placements of one subject merge into blocks.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/foundation/types.h"

namespace gexlo {

/// A placement as merging sees it.
struct PlacedSlot {
    NSInteger week = 0;
    NSInteger day = 0;
    float period = 0;
    /// Null for a placement without a room, which differs from every room and breaks a block.
    const std::string* room = nullptr;
};

/// The order of a subject's placements: by week, day and period.
bool isBefore(const PlacedSlot& left, const PlacedSlot& right);

/// The rows of the grid by their numbers, ascending.
struct PeriodAxis {
    std::vector<float> numbers;
    float realLastPeriod = 0;

    NSInteger count() const { return static_cast<NSInteger>(numbers.size()); }
    /// -1 for a row that is none.
    NSInteger indexOf(float number) const;
    /// -1 for a row that is none.
    float number(NSInteger index) const;
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
