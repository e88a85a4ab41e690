#include "hosts/headless/view_search.h"

#include "platform/views/button.h"
#include "platform/views/label.h"
#include "platform/views/text_input.h"

namespace gexlo {

using nlohmann::json;

namespace {

/// Formats put a narrow no-break blank where a person types a blank.
std::string withPlainBlanks(std::string text) {
    static constexpr std::string_view kNarrow = "\xE2\x80\xAF";
    for (std::size_t at = text.find(kNarrow); at != std::string::npos; at = text.find(kNarrow, at))
        text.replace(at, kNarrow.size(), " ");
    return text;
}

UIView& theOnly(const std::vector<UIView*>& views, std::optional<std::size_t> index) {
    if (views.empty()) throw CommandError("there is no such view");
    if (index) {
        if (*index >= views.size()) throw CommandError("there are not as many such views");
        return *views[*index];
    }
    if (views.size() > 1) throw CommandError("there are several such views");
    return *views.front();
}

/// A row that is out of sight, upon a view that lies where the table's content does.
std::shared_ptr<UIView> stageFor(UITableView& table, std::shared_ptr<UIView> cell) {
    const CGPoint origin = table.convertPointToWindow({0, 0});
    const CGSize size = table.contentSize();
    auto stage = std::make_shared<UIView>(CGRect{origin.x, origin.y, size.width, size.height});
    stage->addSubview(std::move(cell));
    return stage;
}

class ShownText final : public ViewVisitor {
public:
    std::optional<std::string> text;

    void visit(const UIView&) override {}
    void visit(const UILabel& label) override { text = label.text(); }
    void visit(const UIImageView&) override {}
    void visit(const UIActivityIndicatorView&) override {}
    void visit(const UIScrollView&) override {}
    void visit(const UITableView&) override {}
    void visit(const UITableViewCell&) override {}
    void visit(const UIControl&) override {}
    void visit(const UIButton& button) override {
        if (!button.title().empty()) text = button.title();
    }
    void visit(const UISlider&) override {}
    void visit(const UISwitch&) override {}
    void visit(const UIPickerView&) override {}
    void visit(const UIPickerWheel&) override {}
    void visit(const UIDatePicker&) override {}
    void visit(const UITextField& field) override { text = field.text(); }
    void visit(const UITextView& view) override { text = view.text(); }
};

}  // namespace

std::optional<std::string> textOf(const UIView& view) {
    ShownText shown;
    view.accept(shown);
    return std::move(shown.text);
}

bool isVisible(const UIView& view) {
    const CGRect rect = view.visibleRect();
    return rect.width > 0 && rect.height > 0;
}

void scrollToRow(const DriverContext& context, UITableView& table, NSIndexPath path) {
    const auto held = table.shared_from_this();
    context.device.perform([&] { table.scrollToRow(path); });
}

bool ViewSearch::Pattern::matches(const UIView& view) const {
    if (id && view.accessibilityIdentifier() != *id) return false;
    if (className && *className != view.className()) return false;
    if (!text) return true;
    const auto shown = textOf(view);
    return shown && withPlainBlanks(*shown) == withPlainBlanks(*text);
}

ViewSearch::ViewSearch(const DriverContext& context, const json& fields)
    : context_(context),
      pattern_{.id = optionalText(fields, "id"),
               .text = optionalText(fields, "text"),
               .className = optionalText(fields, "class")},
      index_(optionalIndex(fields, "index")),
      scope_(&context.window()) {
    if (!pattern_.id && !pattern_.text && !pattern_.className) {
        throw CommandError("none of \"id\", \"text\" and \"class\" is there");
    }
    const auto within = fields.find("within");
    if (within == fields.end()) return;
    if (within->is_string()) {
        scope_ = &viewWithId(within->get<std::string>());
        return;
    }
    if (!within->is_object()) throw CommandError("\"within\" is no text and no row");
    UIView& view = viewWithId(textField(*within, "id"));
    const auto table = std::dynamic_pointer_cast<UITableView>(view.shared_from_this());
    if (!table) throw CommandError("\"within\" names no table");
    row_ = Row{table,
               {static_cast<NSInteger>(indexField(*within, "section")),
                static_cast<NSInteger>(indexField(*within, "row"))}};
    lookInRow();
}

void ViewSearch::lookInRow() {
    const auto cell = row_->table->cellForRow(row_->path);
    if (!cell) throw CommandError("there is no such row");
    if (!cell->superview()) stage_ = stageFor(*row_->table, cell);
    scope_ = cell.get();
}

void ViewSearch::collect(UIView& view, const Pattern& pattern, bool all,
                         std::vector<UIView*>& found) {
    if (!all && view.isHidden()) return;
    if (pattern.matches(view) && (all || isVisible(view))) found.push_back(&view);
    for (const auto& child : view.subviews())
        collect(*child, pattern, all, found);
}

UIView& ViewSearch::viewWithId(const std::string& id) const {
    const Pattern pattern{.id = id, .text = {}, .className = {}};
    std::vector<UIView*> found;
    collect(context_.window(), pattern, false, found);
    if (found.empty()) collect(context_.window(), pattern, true, found);
    return theOnly(found, std::nullopt);
}

std::vector<UIView*> ViewSearch::views(bool all) const {
    std::vector<UIView*> found;
    if (all || !stage_) collect(*scope_, pattern_, all, found);
    return found;
}

UIView& ViewSearch::theView() const {
    // In a row upon its stage, as if that were in sight.
    std::vector<UIView*> found;
    collect(*scope_, pattern_, false, found);
    if (found.empty()) collect(*scope_, pattern_, true, found);
    return theOnly(found, index_);
}

bool ViewSearch::bringIntoSight() {
    if (!row_) return true;
    if (!context_.window().canReach(*row_->table)) return !stage_;
    scrollToRow(context_, *row_->table, row_->path);
    stage_.reset();
    lookInRow();
    return true;
}

void ViewSearch::bringWithinReach() {
    const CGPoint former = row_ ? row_->table->contentOffset() : CGPoint{};
    if (bringIntoSight() && context_.window().canReach(theView())) return;
    if (row_) context_.device.perform([&] { row_->table->setContentOffset(former); });
    throw CommandError("that view cannot be reached");
}

}  // namespace gexlo
