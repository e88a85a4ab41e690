// Finding views as a person would name them.
#pragma once

#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "platform/views/table_view.h"

namespace gexlo {

/// The text that a view shows, or nothing.
std::optional<std::string> textOf(const UIView& view);

/// Whether a person can see it: not hidden, not transparent, within the window and inside
/// every clipping parent.
bool isVisible(const UIView& view);

/// The views that match `id`, `text` and `class` of a command and lie `within` what it names,
/// in drawing order; with `all` also those that cannot be seen.
std::vector<UIView*> matchingViews(const nlohmann::json& fields, bool all);

/// The one view that a command names, or the `index`-th of those that match. Views that can be
/// seen come first; one that cannot is found when no other matches.
UIView& theView(const nlohmann::json& fields);

/// The same, of a kind.
template <typename View>
View& theViewOf(const nlohmann::json& fields);

/// Scrolls a table to a row for the command that is being run.
void bringIntoSight(UITableView& table, NSIndexPath path);

/// While a command is run: the tables that it scrolls to rows go back where it is refused.
class RowsInSight {
public:
    RowsInSight();
    ~RowsInSight();
    RowsInSight(const RowsInSight&) = delete;
    RowsInSight& operator=(const RowsInSight&) = delete;
    void stay() { scrolled_.clear(); }

private:
    friend void bringIntoSight(UITableView& table, NSIndexPath path);
    struct Scrolled {
        std::weak_ptr<UIView> table;
        CGPoint from;
    };
    std::vector<Scrolled> scrolled_;
};

}  // namespace gexlo
