#include "presentation/panels/room_row.h"

#include "platform/foundation/bundle.h"

namespace gexlo {

namespace {

constexpr double kDeleteWidth = 44;
constexpr double kRoomGap = 4;
constexpr double kRoomCap = 20;

// The same, and two by name: a room may one day look different while it is selected.
constexpr UIColor kRoomTextColorNormal = UIColor::whiteColor();
constexpr UIColor kRoomTextColorSelected = UIColor::whiteColor();

UIImage roomImage(const char* name) {
    return UIImage::imageNamed(name).stretchableImageWithLeftCapWidth_topCapHeight(kRoomCap, 0);
}

}  // namespace

RoomRow::RoomRow(UIView& panel, CGRect frame, const std::function<void(std::size_t)>& roomDidPush,
                 const std::function<void()>& deleteDidPush) {
    static constexpr const char* kIdentifiers[] = {"btnRoom1", "btnRoom2", "btnRoom3"};
    const double width = (frame.width - kDeleteWidth - 4) / LessonRooms::kMost;
    for (std::size_t place = 0; place < LessonRooms::kMost; ++place) {
        UIButton& button = panel.add<UIButton>(CGRect{frame.x + static_cast<double>(place) * width,
                                                      frame.y, width - kRoomGap, frame.height});
        button.setAccessibilityIdentifier(kIdentifiers[place]);
        button.setFont(UIFont::systemFontOfSize(13));
        button.addAction(UIControlEvent::touchUpInside,
                         [roomDidPush, place] { roomDidPush(place); });
        btnRooms_[place] = &button;
    }
    btnDelLessonRoom_ = &panel.add<UIButton>(
        CGRect{frame.maxX() - kDeleteWidth - 2, frame.y, kDeleteWidth, frame.height});
    btnDelLessonRoom_->setAccessibilityIdentifier("btnDelLessonRoom");
    btnDelLessonRoom_->setAccessibilityLabel(NSLocalizedString("DELETE_ROOM"));
    btnDelLessonRoom_->setImage(UIImage::imageNamed("theme_basic_btn_del_room"));
    btnDelLessonRoom_->addAction(UIControlEvent::touchUpInside, deleteDidPush);
}

void RoomRow::show(const LessonRooms& rooms) {
    const std::size_t count = rooms.numRooms();
    for (std::size_t place = 0; place < btnRooms_.size(); ++place) {
        UIButton& button = *btnRooms_[place];
        const bool isSelected = place + 1 == rooms.selectedRoomNo();
        button.setHidden(place > count);
        button.setTitle(rooms.room(place));
        button.setTitleColor(isSelected ? kRoomTextColorSelected : kRoomTextColorNormal);
        button.setSelected(isSelected);
        if (place == count) {
            button.setBackgroundImage(roomImage("theme_basic_btn_room_add"));
            button.setImage(UIImage::imageNamed("theme_basic_list_button_add"));
            button.setAccessibilityLabel(NSLocalizedString("ADD_ROOM"));
        } else {
            button.setBackgroundImage(roomImage(isSelected ? "theme_basic_btn_room_selected"
                                                           : "theme_basic_btn_room_normal"));
            button.setImage({});
            button.setAccessibilityLabel("");
        }
    }
    btnDelLessonRoom_->setHidden(count == 0);
}

}  // namespace gexlo
