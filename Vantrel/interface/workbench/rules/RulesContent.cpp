#include "Vantrel/interface/workbench/rules/RulesContent.h"

#include "Vantrel/interface/Text.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <map>
#include <variant>

namespace vantrel {

namespace {

using Choice = RulesContent::Choice;
using Windows = std::map<std::string, std::int64_t>;

// The ordinary windows of each application, as far as they are known.
std::optional<Windows> openWindows(const PublishedState& state) {
    if (!state.liveWindows) {
        return std::nullopt;
    }
    Windows windows;
    for (const DeskWindow& window : *state.liveWindows) {
        windows[window.bundleID] += window.kind == WindowKind::ordinary ? 1 : 0;
    }
    return windows;
}

std::string openText(const AppFacts& app, const std::optional<Windows>& windows) {
    if (!windows) {
        return "";
    }
    const auto found = windows->find(app.bundleID);
    return found == windows->end() ? tr("not running")
                                   : trn("{} window open", "{} windows open", found->second);
}

std::string learnedText(const AppFacts& app, Choice choice) {
    if (choice == Choice::leaveAlone) {
        return tr("Left where it opens");
    }
    const std::string learned = AppFactsText::summary(app);
    return learned.empty() ? tr("Nothing to put back yet") : learned;
}

void apply(const AppRule& rule, const std::vector<DisplayInfo>& displays, RulesContent::Row& row) {
    row.isPlacedLast = rule.restoreLast.value_or(false);
    if (std::holds_alternative<AppRule::Ignore>(rule.action)) {
        row.choice = Choice::leaveAlone;
        return;
    }
    const auto& forced = std::get<AppRule::ForceDisplay>(rule.action);
    // Without a display, the rule only says when the windows are placed.
    if (!forced.uuid.empty()) {
        const auto display = std::ranges::find(displays, forced.uuid, &DisplayInfo::uuid);
        row.choice = Choice::keepOnDisplay;
        row.displayUUID = forced.uuid;
        row.displayName = display == displays.end() ? forced.displayName : display->name;
    }
}

} // namespace

RulesContent RulesContent::of(const PublishedState& state, std::vector<AppFacts> facts,
                              const std::vector<AppFacts>& added, const std::string& search) {
    for (const AppFacts& app : added) {
        if (std::ranges::find(facts, app.bundleID, &AppFacts::bundleID) == facts.end()) {
            facts.insert(facts.begin(), app);
        }
    }
    RulesContent content{.displays = DisplayLabels::labelled(state.displays), .rows = {}, .emptyText = {}};
    const auto windows = openWindows(state);
    const std::string wanted = Unicode::lowercased(Unicode::trimmed(search));
    for (const AppFacts& app : facts) {
        if (Unicode::lowercased(app.appName).find(wanted) == std::string::npos) {
            continue;
        }
        Row row{
            .bundleID = app.bundleID, .appName = app.appName, .learned = {}, .open = openText(app, windows)};
        const auto rule = std::ranges::find(state.rules, app.bundleID, &AppRule::bundleID);
        if (rule != state.rules.end()) {
            apply(*rule, content.displays, row);
        }
        row.learned = learnedText(app, row.choice);
        const bool isHere = std::ranges::find(content.displays, row.displayUUID, &DisplayInfo::uuid) !=
                            content.displays.end();
        if (row.choice == Choice::keepOnDisplay && !isHere) {
            row.learned = trf("{} is not connected", row.displayName) + " · " + row.learned;
        }
        content.rows.push_back(std::move(row));
    }
    if (content.rows.empty()) {
        content.emptyText = facts.empty() ? tr("Every application whose windows are remembered appears here.")
                                          : tr("No application has this name.");
    }
    return content;
}

std::optional<AppRule> RulesContent::ruleFor(const Row& row) {
    AppRule rule{
        .bundleID = row.bundleID, .appName = row.appName, .action = AppRule::Ignore{}, .restoreLast = {}};
    if (row.isPlacedLast) {
        rule.restoreLast = true;
    }
    if (row.choice == Choice::keepOnDisplay) {
        rule.action = AppRule::ForceDisplay{.uuid = row.displayUUID, .displayName = row.displayName};
    } else if (row.choice == Choice::putBack) {
        // An empty identity matches no display, so such a rule only says when the windows are placed.
        rule.action = AppRule::ForceDisplay{};
    }
    return row.choice == Choice::putBack && !row.isPlacedLast ? std::nullopt : std::optional(rule);
}

} // namespace vantrel
