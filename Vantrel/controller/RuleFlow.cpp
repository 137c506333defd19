#include "Vantrel/controller/RuleFlow.h"

#include "VantrelCore/text/LocalizedComparison.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"
#include "VantrelCore/windows/AXPermission.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>

namespace vantrel {

std::string text(RuleProblem problem) {
    return problem == RuleProblem::notFound
               ? tr("There is no rule for that application.")
               : tr("The rule could not be written to disk. Nothing was changed.");
}

RuleFlow::RuleFlow(ControllerContext& context, ControllerStores& stores)
    : m_context(context), m_stores(stores) {
    m_context.publisher.publish<RulesTopic>([&](auto& topic) { topic.rules = rules(); });
}

void RuleFlow::showStored() {
    m_context.publisher.publish<RulesTopic>([&](auto& topic) {
        const auto stored = rules();
        if (stored != topic.rules) {
            topic.rules = stored;
            ++topic.rulesVersion;
        }
    });
}

void RuleFlow::rulesChanged() {
    // Earlier captures were made with other rules.
    m_context.gate.noteEdit();
    showStored();
}

std::expected<void, RuleProblem> RuleFlow::setRule(const AppRule& rule) {
    if (!m_context.store.setRule(rule)) {
        return std::unexpected(RuleProblem::writeFailed);
    }
    m_context.log("rule set: " + rule.bundleID);
    rulesChanged();
    return {};
}

std::expected<void, RuleProblem> RuleFlow::removeRule(const std::string& bundleID) {
    const auto known = rules();
    const auto found = std::ranges::find(known, bundleID, &AppRule::bundleID);
    if (found == known.end()) {
        return std::unexpected(RuleProblem::notFound);
    }
    if (!m_context.store.removeRule(found->bundleID)) {
        return std::unexpected(RuleProblem::writeFailed);
    }
    m_context.deletions.add(
        trf("the rule for {}", found->appName), [this, rule = *found]() -> std::expected<void, std::string> {
            const auto present = rules();
            if (std::ranges::find(present, rule.bundleID, &AppRule::bundleID) != present.end()) {
                return std::unexpected(
                    trf("{} has another rule by now. Remove that one first.", rule.appName));
            }
            if (const auto back = setRule(rule); !back) {
                return std::unexpected(text(back.error()));
            }
            return {};
        });
    m_context.log("rule removed: " + found->bundleID);
    rulesChanged();
    return {};
}

std::vector<AppFacts> RuleFlow::facts() {
    const auto& live = m_context.state().liveWindows;
    std::map<std::string, AppReliability> reliability;
    for (AppReliability& app : m_stores.reliability.all()) {
        reliability.insert_or_assign(app.bundleID, std::move(app));
    }
    std::vector<AppFacts> facts;
    for (const KnownApp& app : knownApps()) {
        const auto recorded = reliability.find(app.bundleID);
        facts.push_back(
            {.bundleID = app.bundleID,
             .appName = app.appName,
             .sizes = m_stores.sizeBehavior.classification(app.bundleID),
             .reliability = recorded == reliability.end() ? std::nullopt : std::optional(recorded->second),
             .isRunning =
                 live && std::ranges::find(*live, app.bundleID, &DeskWindow::bundleID) != live->end()});
    }
    return facts;
}

void RuleFlow::findRuledWindows(std::function<void(const RuledWindows&)> done) {
    if (!m_context.gate.mayCapture() || !AXPermission::isGranted(m_context.ports.desk)) {
        done({});
        return;
    }
    CaptureFilter filter{.excludedBundleID = m_context.ownBundleID, .onlyBundleIDs = std::set<std::string>()};
    for (const AppRule& rule : rules()) {
        filter.onlyBundleIDs->insert(rule.bundleID);
    }
    m_context.inBackground(
        WorkPriority::userInitiated, [filter, &desk = m_context.ports.desk] { return desk.capture(filter); },
        [done = std::move(done)](const std::optional<DeskSnapshot>& snapshot) {
            RuledWindows windows;
            for (const DeskWindow& window : snapshot ? snapshot->windows : std::vector<DeskWindow>()) {
                if (window.kind == WindowKind::ordinary) {
                    windows[window.bundleID].push_back(window);
                }
            }
            done(windows);
        });
}

std::vector<RuleFlow::KnownApp> RuleFlow::knownApps() {
    std::map<std::string, std::string> names;
    const auto add = [&](const Layout& layout) {
        for (const WindowRecord& window : layout.windows) {
            names.try_emplace(window.bundleID, window.appName);
        }
    };
    for (const AppRule& rule : rules()) {
        names.try_emplace(rule.bundleID, rule.appName);
    }
    std::ranges::for_each(m_context.store.allLayouts(), add);
    for (const Scene& scene : m_context.state().scenes) {
        add(scene.layout);
    }
    std::vector<KnownApp> apps;
    for (const auto& [bundleID, appName] : names) {
        apps.push_back({bundleID, appName});
    }
    std::ranges::stable_sort(apps, [](const KnownApp& a, const KnownApp& b) {
        return LocalizedComparison::caseInsensitive(a.appName, b.appName) < 0;
    });
    return apps;
}

std::optional<RuleFlow::KnownApp> RuleFlow::app(std::string_view called) {
    const std::string wanted = Unicode::lowercased(Unicode::trimmed(called));
    const auto apps = knownApps();
    const auto named = [&](auto member) {
        return std::ranges::find_if(apps, [&](const KnownApp& known) {
            return Unicode::lowercased(std::invoke(member, known)) == wanted;
        });
    };
    for (const auto found : {named(&KnownApp::bundleID), named(&KnownApp::appName)}) {
        if (found != apps.end()) {
            return *found;
        }
    }
    const std::string bundleID(Unicode::trimmed(called));
    const auto name = m_context.ports.workspace.applicationName(bundleID);
    return name ? std::optional(KnownApp{bundleID, *name}) : std::nullopt;
}

} // namespace vantrel
