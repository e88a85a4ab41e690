// The list of the timetable's subjects: choose one to edit, add, reorder and remove.
#pragma once

#include <memory>
#include <vector>

#include "platform/views/button.h"
#include "platform/views/image_view.h"
#include "platform/views/label.h"
#include "platform/views/table_view.h"
#include "presentation/panels/panel_stack.h"

namespace gexlo {

class GXLessonData;

/// A subject's name, its teacher's name and a swatch of its colour.
class SubjectListCell final : public UITableViewCell {
public:
    explicit SubjectListCell(const GXLessonData& lesson);
    const char* className() const override { return "SubjectListCell"; }
    void layoutSubviews() override;

private:
    std::shared_ptr<UIImageView> colorView_;
    std::shared_ptr<UILabel> nameLabel_;
    std::shared_ptr<UILabel> professorLabel_;
};

/// What the table asks of the panel that it lies in.
class SubjectListTableViewDelegate {
public:
    virtual ~SubjectListTableViewDelegate() = default;
    virtual void lessonSelected(GXLessonData& lesson) = 0;
    virtual void lessonToBeRemoved(GXLessonData& lesson) = 0;
};

class SubjectListTableView final : public UITableView,
                                   public UITableViewDataSource,
                                   public UITableViewDelegate {
public:
    explicit SubjectListTableView(CGRect frame);
    const char* className() const override { return "SubjectListTableView"; }

    /// Reads the subjects and shows them.
    void load(std::weak_ptr<SubjectListTableViewDelegate> delegate);
    bool isEmpty() const { return lessons_.empty(); }
    /// While on, taps on rows do nothing.
    void setLocked(bool locked) { locked_ = locked; }
    void drop(const GXLessonData& lesson);

    NSInteger numberOfRowsInSection(UITableView&, NSInteger section) override;
    std::shared_ptr<UITableViewCell> cellForRow(UITableView&, NSIndexPath path) override;
    bool canEditRow(UITableView&, NSIndexPath) override { return true; }
    bool canMoveRow(UITableView&, NSIndexPath) override { return true; }
    void commitDelete(UITableView&, NSIndexPath path) override;
    void moveRow(UITableView&, NSIndexPath from, NSIndexPath to) override;
    void didSelectRow(UITableView&, NSIndexPath path) override;

private:
    GXLessonData& lessonAt(NSIndexPath path) const {
        return *lessons_[static_cast<std::size_t>(path.row)];
    }

    std::vector<GXLessonData*> lessons_;
    std::weak_ptr<SubjectListTableViewDelegate> panel_;
    bool locked_ = false;
};

class SubjectListView final : public Panel, public SubjectListTableViewDelegate {
public:
    SubjectListView();
    const char* className() const override { return "SubjectListView"; }

    /// Fades in; once it is on the main screen.
    void show();
    /// Unlocks the menu at once, and leaves when it has faded out.
    void close() override;

    void lessonSelected(GXLessonData& lesson) override;
    void lessonToBeRemoved(GXLessonData& lesson) override;

private:
    void setListMode();
    void setEditMode();
    void addButtonAction();
    void showMessage();
    void showIgnoredButtons();
    void remove(GXLessonData& lesson);

    std::shared_ptr<UIView> panel_;
    std::shared_ptr<UILabel> titleLabel_;
    std::shared_ptr<UILabel> messageLabel_;
    std::shared_ptr<UIButton> closeButton_;
    std::shared_ptr<UIButton> addButton_;
    std::shared_ptr<UIButton> editButton_;
    std::shared_ptr<UIButton> doneButton_;
    std::shared_ptr<SubjectListTableView> table_;
    bool locked_ = false;
};

}  // namespace gexlo
