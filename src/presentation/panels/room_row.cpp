#include "presentation/panels/room_row.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/foundation/bundle.h"
#include "platform/views/text_measure.h"

namespace gexlo {

namespace {

constexpr double kAddWidth = 56;
constexpr double kDeleteWidth = 44;
constexpr double kGap = 4;
constexpr double kRoomCap = 20;
/// Points that a room's button takes at least, and that it takes beside its text.
constexpr double kLeastWidth = 44;
constexpr double kInset = 16;
/// Points that a line may take before it is broken.
constexpr double kUnbroken = 10000;

// The same, and two by name: a room may one day look different while it is selected.
constexpr UIColor kRoomTextColorNormal = UIColor::whiteColor();
constexpr UIColor kRoomTextColorSelected = UIColor::whiteColor();

UIImage roomImage(const char* name) {
    return UIImage::imageNamed(name).stretchableImageWithLeftCapWidth_topCapHeight(kRoomCap, 0);
}

/// Side by side in a row of that width: each as wide as a finger, and of what is left the more
/// the more its text wants.
std::vector<double> sharedWidths(const std::vector<double>& wanted, double width) {
    const auto count = static_cast<double>(wanted.size());
    const auto more = [](double want) { return std::max(want - kLeastWidth, 1.0); };
    double all = 0;
    for (const double want : wanted)
        all += more(want);
    std::vector<double> widths;
    widths.reserve(wanted.size());
    for (const double want : wanted)
        widths.push_back(
            std::floor(kLeastWidth + (width - count * kLeastWidth) * more(want) / all));
    return widths;
}

}  // namespace

RoomRow::RoomRow(UIView& panel, const std::function<void(std::size_t)>& roomDidPush,
                 const std::function<void()>& deleteDidPush) {
    static constexpr const char* kIdentifiers[] = {"btnRoom1", "btnRoom2", "btnRoom3"};
    for (std::size_t place = 0; place < LessonRooms::kMost; ++place) {
        UIButton& button = panel.add<UIButton>();
        button.setAccessibilityIdentifier(kIdentifiers[place]);
        button.setFont(UIFont::systemFontOfSize(13));
        button.addAction(UIControlEvent::touchUpInside,
                         [roomDidPush, place] { roomDidPush(place); });
        btnRooms_[place] = &button;
    }
    btnDelLessonRoom_ = &panel.add<UIButton>();
    btnDelLessonRoom_->setAccessibilityIdentifier("btnDelLessonRoom");
    btnDelLessonRoom_->setAccessibilityLabel(NSLocalizedString("DELETE_ROOM"));
    btnDelLessonRoom_->setImage(UIImage::imageNamed("theme_basic_btn_del_room"));
    btnDelLessonRoom_->addAction(UIControlEvent::touchUpInside, deleteDidPush);
}

void RoomRow::setFrame(CGRect frame) {
    frame_ = frame;
    layOut();
}

/// The rooms share what adding and deleting leave.
void RoomRow::layOut() {
    const bool canAdd = numRooms_ < LessonRooms::kMost;
    const TextMeasure& measure = TextMeasure::current();
    std::vector<double> wanted;
    double room = frame_.width - kDeleteWidth - kGap - (canAdd ? kAddWidth + kGap : 0);
    for (std::size_t place = 0; place < numRooms_; ++place) {
        const UIButton& button = *btnRooms_[place];
        const CGSize text = measure.sizeOfText(button.title(), button.font(), kUnbroken);
        wanted.push_back(kInset + text.width);
        room -= kGap;
    }
    std::vector<double> widths = sharedWidths(wanted, room);
    widths.resize(btnRooms_.size(), kAddWidth);
    double x = frame_.x;
    for (std::size_t place = 0; place < btnRooms_.size(); ++place) {
        btnRooms_[place]->setFrame({x, frame_.y, widths[place], frame_.height});
        x += widths[place] + kGap;
    }
    btnDelLessonRoom_->setFrame(
        {frame_.maxX() - kDeleteWidth - 2, frame_.y, kDeleteWidth, frame_.height});
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
    numRooms_ = count;
    layOut();
}

}  // namespace gexlo
