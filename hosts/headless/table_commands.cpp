// Rows of tables: reading them, and what a person does with them.
#include "hosts/headless/driver_command.h"
#include "hosts/headless/view_search.h"
#include "platform/foundation/device.h"
#include "platform/views/table_view.h"
#include "platform/views/window.h"

namespace gexlo {

using nlohmann::json;

namespace {

void addTexts(const UIView& view, json& texts) {
    if (view.isHidden() || view.alpha() == 0) return;
    const auto text = textOf(view);
    if (text && !text->empty()) texts.push_back(*text);
    for (const auto& child : view.subviews())
        addTexts(*child, texts);
}

json rows(const json& fields) {
    UITableView& table = theViewOf<UITableView>(fields);
    json sections = json::array();
    for (NSInteger section = 0; section < table.numberOfSections(); ++section) {
        json list = json::array();
        for (NSInteger row = 0; row < table.numberOfRowsInSection(section); ++row) {
            json texts = json::array();
            if (const auto cell = table.cellForRow({section, row})) addTexts(*cell, texts);
            list.push_back(std::move(texts));
        }
        sections.push_back({{"header", table.titleForHeader(section)}, {"rows", std::move(list)}});
    }
    return {{"sections", std::move(sections)}};
}

NSIndexPath pathOf(const json& fields, const char* row) {
    return {static_cast<NSInteger>(indexField(fields, "section")),
            static_cast<NSInteger>(indexField(fields, row))};
}

/// The table that a person can touch, with the row in sight.
UITableView& tableWithRow(const json& fields, NSIndexPath path) {
    UITableView& table = theViewOf<UITableView>(fields);
    if (!table.hasRow(path)) throw CommandError("there is no such row");
    if (!UIWindow::keyWindow().canReach(table)) throw CommandError("that table cannot be reached");
    bringIntoSight(table, path);
    return table;
}

/// In a turn of its own; throws for a row that cannot be treated so.
json treat(const char* refusal, const std::function<bool()>& act) {
    bool done = false;
    Device::current().perform([&] { done = act(); });
    if (!done) throw CommandError(refusal);
    return nothing();
}

json selectRow(const json& fields) {
    const NSIndexPath path = pathOf(fields, "row");
    UITableView& table = tableWithRow(fields, path);
    return treat("that row cannot be selected", [&] { return table.selectRow(path); });
}

json deleteRow(const json& fields) {
    const NSIndexPath path = pathOf(fields, "row");
    UITableView& table = tableWithRow(fields, path);
    return treat("that row cannot be deleted", [&] { return table.requestDelete(path); });
}

json moveRow(const json& fields) {
    const NSIndexPath from = pathOf(fields, "row");
    const NSIndexPath to = pathOf(fields, "to");
    UITableView& table = tableWithRow(fields, from);
    if (!table.hasRow(to)) throw CommandError("there is no such row");
    return treat("that row cannot be moved", [&] { return table.dragRow(from, to); });
}

}  // namespace

std::span<const DriverCommand> tableCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"rows", rows},
        {"select_row", selectRow},
        {"delete_row", deleteRow},
        {"move_row", moveRow},
    };
    return kCommands;
}

}  // namespace gexlo
