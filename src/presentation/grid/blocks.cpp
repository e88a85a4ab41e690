#include "presentation/grid/blocks.h"

#include <algorithm>
#include <cmath>

namespace gexlo {

namespace {

bool sameDay(const PlacedSlot& left, const PlacedSlot& right) {
    return left.week == right.week && left.day == right.day;
}

bool sameRoom(const PlacedSlot& left, const PlacedSlot& right) {
    return left.room && right.room && *left.room == *right.room;
}

}  // namespace

PeriodAxis::PeriodAxis(std::vector<float> numbers, float realLastPeriod)
    : numbers_(std::move(numbers)), realLastPeriod_(realLastPeriod) {
    if (numbers_.empty()) return;
    rowsByTenth_.resize(static_cast<std::size_t>(std::lround(numbers_.back() * 10)) + 1, -1);
    for (std::size_t row = 0; row < numbers_.size(); ++row) {
        rowsByTenth_[static_cast<std::size_t>(std::lround(numbers_[row] * 10))] =
            static_cast<NSInteger>(row);
    }
}

float PeriodAxis::number(NSInteger index) const {
    return index < 0 || index >= count() ? -1 : numbers_[static_cast<std::size_t>(index)];
}

std::optional<std::size_t> placementOn(std::span<const PlacedSlot> placements, NSInteger week,
                                       NSInteger day, float period) {
    const auto behind = std::upper_bound(placements.begin(), placements.end(),
                                         PlacedSlot{week, day, period}, comesBefore);
    if (behind == placements.begin()) return std::nullopt;
    const PlacedSlot& last = *(behind - 1);
    if (last.week != week || last.day != day || last.period != period) return std::nullopt;
    return behind - 1 - placements.begin();
}

Block blockAt(std::span<const PlacedSlot> placements, std::size_t position, NSInteger row,
              const PeriodAxis& axis) {
    const PlacedSlot& own = placements[position];
    if (row >= 1) {
        const float before = axis.number(row - 1);
        for (std::size_t i = position; i > 0; --i) {
            const PlacedSlot& slot = placements[i - 1];
            if (!sameDay(slot, own) || slot.period < before) break;
            if (slot.period == before && sameRoom(slot, own)) return {.covered = true};
        }
    }
    Block block;
    for (std::size_t i = position + 1; i < placements.size(); ++i) {
        const PlacedSlot& slot = placements[i];
        if (!sameDay(slot, own) || slot.period > axis.realLastPeriod()) break;
        const NSInteger next = row + block.count;
        if (next < axis.count() && slot.period == axis.number(next) && sameRoom(slot, own))
            ++block.count;
    }
    return block;
}

}  // namespace gexlo
