// Finding views as a person would name them.
#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "hosts/headless/driver_command.h"
#include "hosts/headless/driver_context.h"
#include "platform/views/table_view.h"

namespace gexlo {

/// The text that a view shows, or nothing.
std::optional<std::string> textOf(const UIView& view);

/// Whether a person can see it: not hidden, not transparent, within the window and inside
/// every clipping parent.
bool isVisible(const UIView& view);

/// Scrolls to a row, in a turn of its own. The table stays alive in it.
void scrollToRow(const DriverContext& context, UITableView& table, NSIndexPath path);

/// What the `id`, `text`, `class`, `within` and `index` of a command name. Looks only, until it
/// is told to bring what it looks for into sight.
class ViewSearch {
public:
    /// Both outlive it.
    ViewSearch(const DriverContext& context, const nlohmann::json& fields);

    /// Those that match, in drawing order; with `all` also those that cannot be seen, and of a
    /// row out of sight just as the table would show it.
    std::vector<UIView*> views(bool all) const;

    /// The one that matches, or the `index`-th of several. Views that can be seen come first;
    /// one that cannot is found when no other matches.
    UIView& theView() const;
    /// The same, of a kind; `refusal` says what any other lacks, as "does not scroll".
    template <typename View>
    View& theViewOf(const char* refusal) const {
        auto* view = dynamic_cast<View*>(&theView());
        if (!view) throw CommandError(std::string("that view ") + refusal);
        return *view;
    }

    /// Scrolls the row that was looked in, if any, to where all of it is seen. False, and nothing
    /// scrolls, where a finger cannot get at the table. What was found is to be asked for anew.
    bool bringIntoSight();
    /// The same, and throws, with nothing scrolled, where no finger reaches the view even then.
    void bringWithinReach();

private:
    struct Pattern {
        std::optional<std::string> id;
        std::optional<std::string> text;
        std::optional<std::string> className;
        bool matches(const UIView& view) const;
    };
    struct Row {
        std::shared_ptr<UITableView> table;
        NSIndexPath path;
    };
    static void collect(UIView& view, const Pattern& pattern, bool all,
                        std::vector<UIView*>& found);
    UIView& viewWithId(const std::string& id) const;
    void lookInRow();

    const DriverContext& context_;
    Pattern pattern_;
    std::optional<std::size_t> index_;
    UIView* scope_;
    std::optional<Row> row_;
    std::shared_ptr<UIView> stage_;  // holds a row that is made to be looked at; else null
};

}  // namespace gexlo
