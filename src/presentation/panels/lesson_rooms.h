// The rooms of a subject that is being entered: up to three, of which one is in use.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace gexlo {

class LessonRooms {
public:
    static constexpr std::size_t kMost = 3;
    using Texts = std::array<std::string, kMost>;

    LessonRooms() = default;
    /// The last text that is there tells how many rooms there are; the first is selected.
    explicit LessonRooms(const Texts& texts);

    std::size_t numRooms() const { return numRooms_; }
    /// From 1; 0 without rooms.
    std::size_t selectedRoomNo() const { return selectedRoomNo_; }
    /// "" for a room that is not there.
    const std::string& room(std::size_t place) const { return texts_[place]; }
    /// "" without rooms.
    std::string selectedRoom() const;

    /// Whether the first or the second room is called so; the third is not compared, since
    /// with three rooms none can be added.
    bool hasSame(const std::string& room) const;
    /// Behind the last, and selected. There must be room for one.
    void add(std::string room);
    void select(std::size_t place) { selectedRoomNo_ = place + 1; }
    /// Takes the selected one out and closes the gap; what it was called.
    std::string removeSelected();

private:
    Texts texts_;
    std::size_t numRooms_ = 0;
    std::size_t selectedRoomNo_ = 0;
};

}  // namespace gexlo
