#include "presentation/panels/lesson_rooms.h"

#include <algorithm>
#include <utility>

namespace gexlo {

LessonRooms::LessonRooms(const Texts& texts) : texts_(texts) {
    const auto last = std::find_if(texts_.rbegin(), texts_.rend(),
                                   [](const std::string& text) { return !text.empty(); });
    numRooms_ = static_cast<std::size_t>(texts_.rend() - last);
    selectedRoomNo_ = numRooms_ > 0 ? 1 : 0;
}

std::string LessonRooms::selectedRoom() const {
    return selectedRoomNo_ == 0 ? "" : texts_[selectedRoomNo_ - 1];
}

bool LessonRooms::hasSame(const std::string& room) const {
    return room == texts_[0] || room == texts_[1];
}

void LessonRooms::add(std::string room) {
    texts_[numRooms_] = std::move(room);
    selectedRoomNo_ = ++numRooms_;
}

std::string LessonRooms::removeSelected() {
    if (numRooms_ == 0) return "";
    const auto removed = texts_.begin() + static_cast<std::ptrdiff_t>(selectedRoomNo_ - 1);
    std::string text = std::move(*removed);
    std::move(removed + 1, texts_.end(), removed);
    texts_.back().clear();
    --numRooms_;
    // The last room gives way to the one before it, any other to the first.
    selectedRoomNo_ = selectedRoomNo_ > numRooms_ ? numRooms_ : 1;
    return text;
}

}  // namespace gexlo
