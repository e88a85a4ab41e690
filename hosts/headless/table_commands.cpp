// Rows of tables: reading them, and what a person does with them.
#include "hosts/headless/driver_command.h"
#include "hosts/headless/driver_context.h"
#include "hosts/headless/json_views.h"
#include "hosts/headless/view_search.h"
#include "platform/views/date_picker.h"
#include "platform/views/table_view.h"

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

json componentsOf(const UIPickerView& picker) {
    json components = json::array();
    for (NSInteger i = 0; i < picker.numberOfComponents(); ++i) {
        const UIPickerWheel& wheel = *picker.wheel(i);
        json titles = json::array();
        for (NSInteger row = 0; row < wheel.numberOfRows(); ++row)
            titles.push_back(wheel.titleForRow(row));
        components.push_back(
            {{"titles", std::move(titles)}, {"selected", jsonFromSelection(wheel)}});
    }
    return {{"components", std::move(components)}};
}

json rows(const DriverContext& context, const json& fields) {
    ViewSearch search(context, fields);
    UIView& view = search.theView();
    if (const auto* picker = dynamic_cast<UIPickerView*>(&view)) return componentsOf(*picker);
    if (const auto* dates = dynamic_cast<UIDatePicker*>(&view))
        return componentsOf(dates->wheels());
    auto& table = search.theViewOf<UITableView>("is no table and no picker");
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

using OnTable = std::function<void(UITableView&)>;

/// Does to a row what a person does to it once it is in sight. `check` throws for one that cannot
/// be so treated, before anything is scrolled.
json treat(const DriverContext& context, const json& fields, NSIndexPath path, const OnTable& check,
           const OnTable& act) {
    ViewSearch search(context, fields);
    auto& found = search.theViewOf<UITableView>("is no table");
    if (!found.hasRow(path)) throw CommandError("there is no such row");
    check(found);
    search.bringWithinReach();
    auto& table = search.theViewOf<UITableView>("is no table");
    scrollToRow(context, table, path);
    context.device.perform([&] { act(table); });
    return nothing();
}

json selectRow(const DriverContext& context, const json& fields) {
    const NSIndexPath path = pathOf(fields, "row");
    const auto check = [path](UITableView& table) {
        if (!table.canSelectRow(path)) throw CommandError("that row cannot be selected");
    };
    return treat(context, fields, path, check,
                 [path](UITableView& table) { table.selectRow(path); });
}

json accessory(const DriverContext& context, const json& fields) {
    const NSIndexPath path = pathOf(fields, "row");
    const auto check = [path](UITableView& table) {
        if (!table.canTapAccessory(path)) throw CommandError("that row has no such button");
    };
    return treat(context, fields, path, check,
                 [path](UITableView& table) { table.tapAccessory(path); });
}

json pull(const DriverContext& context, const json& fields) {
    ViewSearch search(context, fields);
    auto& found = search.theViewOf<UITableView>("is no table");
    if (!found.canPull()) throw CommandError("that table is not refreshed by a pull");
    search.bringWithinReach();
    auto& table = search.theViewOf<UITableView>("is no table");
    context.device.perform([&] { table.pull(); });
    return nothing();
}

json deleteRow(const DriverContext& context, const json& fields) {
    const NSIndexPath path = pathOf(fields, "row");
    const auto check = [path](UITableView& table) {
        if (!table.canDeleteRow(path)) throw CommandError("that row cannot be deleted");
    };
    return treat(context, fields, path, check,
                 [path](UITableView& table) { table.requestDelete(path); });
}

json moveRow(const DriverContext& context, const json& fields) {
    const NSIndexPath from = pathOf(fields, "row");
    const NSIndexPath to = pathOf(fields, "to");
    const auto check = [from, to](UITableView& table) {
        if (!table.hasRow(to)) throw CommandError("there is no such row");
        if (!table.canDragRow(from, to)) throw CommandError("that row cannot be moved");
    };
    return treat(context, fields, from, check,
                 [from, to](UITableView& table) { table.dragRow(from, to); });
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
