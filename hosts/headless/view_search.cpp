#include "hosts/headless/view_search.h"

#include "hosts/headless/driver_command.h"
#include "platform/views/button.h"
#include "platform/views/label.h"
#include "platform/views/table_view.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"

namespace gexlo {

using nlohmann::json;

namespace {

RowsInSight* ofCommand = nullptr;  // null between commands

struct Pattern {
    std::optional<std::string> id;
    std::optional<std::string> text;
    std::optional<std::string> className;

    bool isEmpty() const { return !id && !text && !className; }
    bool matches(const UIView& view) const;
};

/// Formats put a narrow no-break blank where a person types a blank.
std::string withPlainBlanks(std::string text) {
    static constexpr std::string_view kNarrow = "\xE2\x80\xAF";
    for (std::size_t at = text.find(kNarrow); at != std::string::npos; at = text.find(kNarrow, at))
        text.replace(at, kNarrow.size(), " ");
    return text;
}

bool Pattern::matches(const UIView& view) const {
    if (id && view.accessibilityIdentifier() != *id) return false;
    if (className && *className != view.className()) return false;
    if (!text) return true;
    const auto shown = textOf(view);
    return shown && withPlainBlanks(*shown) == withPlainBlanks(*text);
}

void collect(UIView& view, const Pattern& pattern, bool all, std::vector<UIView*>& found) {
    if (!all && view.isHidden()) return;
    if (pattern.matches(view) && (all || isVisible(view))) found.push_back(&view);
    for (const auto& child : view.subviews())
        collect(*child, pattern, all, found);
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

UIView& viewWithId(const std::string& id) {
    const Pattern pattern{.id = id, .text = {}, .className = {}};
    std::vector<UIView*> found;
    collect(UIWindow::keyWindow(), pattern, false, found);
    if (found.empty()) collect(UIWindow::keyWindow(), pattern, true, found);
    return theOnly(found, std::nullopt);
}

/// Where a command looks: the window, the view that `within` names, or a row of a table, which
/// comes into sight for it.
UIView& scopeOf(const json& fields) {
    const auto within = fields.find("within");
    if (within == fields.end()) return UIWindow::keyWindow();
    if (within->is_string()) return viewWithId(within->get<std::string>());
    if (!within->is_object()) throw CommandError("\"within\" is no text and no row");
    auto* table = dynamic_cast<UITableView*>(&viewWithId(textField(*within, "id")));
    if (!table) throw CommandError("\"within\" names no table");
    const NSIndexPath path{static_cast<NSInteger>(indexField(*within, "section")),
                           static_cast<NSInteger>(indexField(*within, "row"))};
    if (!table->hasRow(path)) throw CommandError("there is no such row");
    bringIntoSight(*table, path);
    return *table->cellForRow(path);
}

Pattern patternOf(const json& fields) {
    return {.id = optionalText(fields, "id"),
            .text = optionalText(fields, "text"),
            .className = optionalText(fields, "class")};
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

std::vector<UIView*> matchingViews(const json& fields, bool all) {
    const Pattern pattern = patternOf(fields);
    if (pattern.isEmpty()) throw CommandError("none of \"id\", \"text\" and \"class\" is there");
    std::vector<UIView*> found;
    collect(scopeOf(fields), pattern, all, found);
    return found;
}

UIView& theView(const json& fields) {
    std::vector<UIView*> found = matchingViews(fields, false);
    if (found.empty()) found = matchingViews(fields, true);
    return theOnly(found, optionalIndex(fields, "index"));
}

RowsInSight::RowsInSight() {
    ofCommand = this;
}

RowsInSight::~RowsInSight() {
    ofCommand = nullptr;
    for (const Scrolled& scrolled : scrolled_) {
        const auto table = std::dynamic_pointer_cast<UITableView>(scrolled.table.lock());
        if (table) table->setContentOffset(scrolled.from);
    }
}

void bringIntoSight(UITableView& table, NSIndexPath path) {
    if (ofCommand) ofCommand->scrolled_.push_back({table.weak_from_this(), table.contentOffset()});
    table.scrollToRow(path);
}

template <>
UIScrollView& theViewOf<UIScrollView>(const json& fields) {
    auto* scroll = dynamic_cast<UIScrollView*>(&theView(fields));
    if (!scroll) throw CommandError("that view does not scroll");
    return *scroll;
}

template <>
UITableView& theViewOf<UITableView>(const json& fields) {
    auto* table = dynamic_cast<UITableView*>(&theView(fields));
    if (!table) throw CommandError("that view is no table");
    return *table;
}

}  // namespace gexlo
