// The buttons of a subject's rooms, with the one that adds a room and the one that deletes one.
#pragma once

#include <array>
#include <functional>

#include "platform/views/button.h"
#include "presentation/panels/lesson_rooms.h"

namespace gexlo {

class RoomRow {
public:
    /// Puts its buttons into the panel. `roomDidPush` gets the place from 0; the one behind
    /// the last room adds another.
    RoomRow(UIView& panel, const std::function<void(std::size_t)>& roomDidPush,
            const std::function<void()>& deleteDidPush);

    void setFrame(CGRect frame);
    void show(const LessonRooms& rooms);

private:
    void layOut();

    CGRect frame_;
    std::size_t numRooms_ = 0;
    std::array<UIButton*, LessonRooms::kMost> btnRooms_{};  // of the panel, as the other
    UIButton* btnDelLessonRoom_ = nullptr;
};

}  // namespace gexlo
