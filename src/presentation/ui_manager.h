// The one door to the main screen, with the state that its pieces share.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/foundation/types.h"
#include "platform/views/color.h"
#include "presentation/flows/flows.h"
#include "presentation/screen_facts.h"

namespace gexlo {

class GXCellView;
class GXDateView;
class GXLessonData;
class GXPeriodsController;
class GXTimetableData;
class GXTitleView;
class MainScreen;

/// What a tap on a cell means.
enum class AppState : std::uint8_t {
    normal = 1,  ///< opens the information of its subject
    addLesson = 2,
    editLesson = 3,
};

class GXUIManager {
public:
    static GXUIManager& manager();
    GXUIManager();
    ~GXUIManager();

    // MARK: the screen, as it was at creation; points

    const ScreenFacts& screen() const { return screen_; }
    float statusBarHeight() const { return screen_.statusBarHeight; }
    float screenHeight() const { return screen_.screenHeight; }
    float screenWidth() const { return screen_.screenWidth; }
    float bottomViewHeight() const { return screen_.bottomViewHeight; }
    float contentFullHeight() const { return screen_.contentFullHeight; }
    float contentSmallHeight() const { return screen_.contentSmallHeight; }
    bool isTallerScreen() const { return screen_.isTallerScreen; }

    // MARK: of the timetable on screen

    NSInteger numDays() const { return numDays_; }
    void setNumDays(NSInteger days) { numDays_ = days; }
    bool useSameClasshours() const { return useSameClasshours_; }
    void setUseSameClasshours(bool same) { useSameClasshours_ = same; }
    bool daysToNumbers() const { return daysToNumbers_; }
    void setDaysToNumbers(bool numbers) { daysToNumbers_ = numbers; }
    /// Null before the first timetable.
    GXPeriodsController* periods() const { return periods_.get(); }
    void setPeriods(std::unique_ptr<GXPeriodsController> periods);

    // MARK: add and edit

    AppState appState() const { return appState_; }
    void stateNormal() { appState_ = AppState::normal; }
    void stateAddLessonMode() { appState_ = AppState::addLesson; }
    void stateEditLessonMode() { appState_ = AppState::editLesson; }

    const std::vector<std::shared_ptr<GXCellView>>& selectedCells() const { return selectedCells_; }
    void addSelectedCell(std::shared_ptr<GXCellView> cell);
    void removeSelectedCell(const GXCellView& cell);
    void resetSelectedCells();

    // What a newly selected cell takes.
    UIColor selectedColor() const { return selectedColor_; }
    void setSelectedColor(UIColor color) { selectedColor_ = color; }
    UIColor selectedFontColor() const { return selectedFontColor_; }
    void setSelectedFontColor(UIColor color) { selectedFontColor_ = color; }
    const std::string& selectedRoom() const { return selectedRoom_; }
    void setSelectedRoom(std::string room) { selectedRoom_ = std::move(room); }

    bool scrolling() const { return scrolling_; }
    void setScrolling(bool scrolling) { scrolling_ = scrolling; }

    // MARK: the main screen, for everyone else; nothing happens before there is one

    void setMainView(MainScreen* screen) { mainView_ = screen; }
    MainScreen* mainView() const { return mainView_; }
    /// Null where its panels are not there.
    template <typename Flow>
    Flow* flow() const {
        return std::get<Flow*>(flows());
    }
    /// Has a flow do one of its operations. Does nothing, and says so, where there is no such flow.
    template <typename Flow, typename... Arguments>
    bool ask(void (Flow::*operation)(Arguments...),
             std::type_identity_t<Arguments>... arguments) const {
        Flow* asked = flow<Flow>();
        if (asked) (asked->*operation)(std::forward<Arguments>(arguments)...);
        return asked != nullptr;
    }

    void lockMenu(bool locked);
    void openAddLessonView();
    /// Nothing happens without a subject.
    void openEditLessonView(GXLessonData* lesson);
    void saveLesson();
    void cancelLessonEditing();
    /// The list of the timetable's subjects.
    void openLessonSelector();
    void showClassHour_periodName(const std::string& classHour, const std::string& periodName);
    void hideClassHour();
    /// Loads what has become the current timetable.
    void setCurrentTimetable();
    void closeScheduleView();
    void openTimetableList();
    void openAbsenceCountView(GXLessonData* lesson);
    void openTessaly();
    /// An alert with one button after which nothing follows.
    void showAlertView_message(const std::string& title, const std::string& message);

    // MARK: exchange files; defined in exchange/

    /// The bytes of the timetable's file. Without them, or where a row is missing, the code, if
    /// one is asked for: 16 the file cannot be opened, 17 nor laid out, 18 nor written.
    std::optional<NSData> generateDataFileFromTimetable_errorCode(const GXTimetableData& timetable,
                                                                  std::int32_t* errorCode);
    /// Puts the current timetable's file in a mail. Nothing happens without a mail account.
    void openExportView();
    /// Adds the timetable of the file that a URL of the file scheme names, and shows it. 10 once
    /// it is there; any other status (see `ImportStatus`) has changed nothing.
    std::int32_t openTimetableFromDataFile(const std::string& url);

    // MARK: the title view and the date view, where there is one

    void setTopTitleView(GXTitleView* view) { topTitleView_ = view; }
    void setDateView(GXDateView* view) { dateView_ = view; }
    void openTopTitleViewWithScheduleIndex(NSInteger index);
    void setScheduleIndexInTopTitleView(NSInteger index);
    void closeTopTitleViewAnimated(bool animated);
    void lockScheduleButtonInTopTitleView(bool locked);
    // Counts of the open subject.
    void dateViewAbsence(int count);
    void dateViewLateness(int count);

private:
    const Flows& flows() const;

    ScreenFacts screen_;
    NSInteger numDays_ = 0;
    bool useSameClasshours_ = false;
    bool daysToNumbers_ = false;
    bool scrolling_ = false;
    AppState appState_ = AppState::normal;
    std::unique_ptr<GXPeriodsController> periods_;
    std::vector<std::shared_ptr<GXCellView>> selectedCells_;
    UIColor selectedColor_;
    UIColor selectedFontColor_;
    std::string selectedRoom_;
    MainScreen* mainView_ = nullptr;
    // Of the main screen.
    GXTitleView* topTitleView_ = nullptr;
    GXDateView* dateView_ = nullptr;
};

}  // namespace gexlo
