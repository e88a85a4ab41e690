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

std::string headerText(UITableView& table, NSInteger section) {
    json texts = json::array();
    if (const auto header = table.headerForSection(section)) addTexts(*header, texts);
    return texts.empty() ? "" : texts.front().get<std::string>();
}

/// A row's texts; with a mark, an object that tells it too.
json jsonFromRow(UITableView& table, NSIndexPath path) {
    json texts = json::array();
    const auto cell = table.cellForRow(path);
    if (cell) addTexts(*cell, texts);
    if (!cell || cell->accessory() == UITableViewCellAccessory::none) return texts;
    const bool isChecked = cell->accessory() == UITableViewCellAccessory::checkmark;
    return {{"texts", std::move(texts)}, {isChecked ? "checked" : "accessory", true}};
}

json rows(const json& fields) {
    UITableView& table = theViewOf<UITableView>(fields);
    json sections = json::array();
    for (NSInteger section = 0; section < table.numberOfSections(); ++section) {
        json list = json::array();
        for (NSInteger row = 0; row < table.numberOfRowsInSection(section); ++row)
            list.push_back(jsonFromRow(table, {section, row}));
        sections.push_back({{"header", headerText(table, section)}, {"rows", std::move(list)}});
    }
    return {{"sections", std::move(sections)}};
}

NSIndexPath pathOf(const json& fields, const char* row) {
    return {static_cast<NSInteger>(indexField(fields, "section")),
            static_cast<NSInteger>(indexField(fields, row))};
}

UITableView& tableInReach(const json& fields) {
    UITableView& table = theViewOf<UITableView>(fields);
    if (!UIWindow::keyWindow().canReach(table)) throw CommandError("that table cannot be reached");
    return table;
}

/// The table that a person can touch, with the row in sight.
UITableView& tableWithRow(const json& fields, NSIndexPath path) {
    if (!theViewOf<UITableView>(fields).hasRow(path)) throw CommandError("there is no such row");
    UITableView& table = tableInReach(fields);
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

json accessory(const json& fields) {
    const NSIndexPath path = pathOf(fields, "row");
    UITableView& table = tableWithRow(fields, path);
    return treat("that row has no such button", [&] { return table.tapAccessory(path); });
}

json pull(const json& fields) {
    UITableView& table = tableInReach(fields);
    return treat("that table is not refreshed by a pull", [&] { return table.pull(); });
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
        {"rows", rows},           {"select_row", selectRow},
        {"accessory", accessory}, {"delete_row", deleteRow},
        {"move_row", moveRow},    {"pull", pull},
    };
    return kCommands;
}

}  // namespace gexlo
