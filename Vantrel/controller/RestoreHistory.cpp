#include "Vantrel/controller/RestoreHistory.h"

#include <fmt/format.h>
#include <utility>

namespace vantrel {

namespace {

RestoreLog::Outcome outcome(RestoreReport::Kind kind) {
    switch (kind) {
    case RestoreReport::Kind::failed:
        return RestoreLog::Outcome::failed;
    case RestoreReport::Kind::skipped:
        return RestoreLog::Outcome::skipped;
    case RestoreReport::Kind::retried:
        return RestoreLog::Outcome::retried;
    case RestoreReport::Kind::restored:
        break;
    }
    return RestoreLog::Outcome::restored;
}

std::vector<RestoreLog::Item> logItems(const RestoreReport& report) {
    std::vector<RestoreLog::Item> items;
    items.reserve(report.items.size());
    for (const RestoreReport::Item& item : report.items) {
        const auto& [kind, reason, note] = item.outcome;
        items.push_back({item.appName, item.bundleID, item.title, outcome(kind),
                         reason.empty() ? std::nullopt : std::optional(reason),
                         note.empty() ? std::nullopt : std::optional(note)});
    }
    return items;
}

} // namespace

RestoreHistory::RestoreHistory(ControllerContext& context, ControllerStores& stores)
    : m_context(context), m_stores(stores) {
    showStored();
}

void RestoreHistory::showStored() {
    m_context.publisher.publish([&](PublishedState& state) {
        state.receipts = m_stores.receipts.load();
        state.usage = m_stores.usage.load();
        ++state.restoreLogVersion;
    });
}

void RestoreHistory::check(bool isWritten, const char* what) {
    if (!isWritten) {
        m_context.log(fmt::format("restore history: the {} could not be written", what));
    }
}

void RestoreHistory::record(const RestoreRequest& request, const RestoreReport& report,
                            const std::vector<AppSizeBehaviorStore::Observation>& sizes) {
    const Date now = m_context.ports.clock.now();
    const auto windows = static_cast<std::int64_t>(report.restoredCount());
    m_latest = RestoreLog::Entry{.date = now,
                                 .reason = request.reason,
                                 .sceneName = request.sceneName,
                                 .configID = request.layout.configID,
                                 .elapsed = report.elapsed,
                                 .items = logItems(report)};
    check(m_stores.reliability.record(m_latest->items, now), "reliability of applications");
    check(m_stores.sizeBehavior.record(sizes), "size behaviour of applications");
    recordTotals(request, windows, now);
    if (!m_stores.restoreLog.record(*m_latest)) {
        check(false, "entry");
        m_latest.reset();
    }
    m_context.publisher.publish([&](PublishedState& state) {
        ++state.restoreLogVersion;
        state.receipts = m_stores.receipts.load();
        state.usage = m_stores.usage.load();
        state.lastAction = LastAction{.windowCount = windows, .date = now, .reason = request.reason};
    });
}

void RestoreHistory::recordTotals(const RestoreRequest& request, std::int64_t windows, Date date) {
    check(m_stores.receipts.update([&](RestoreReceipts& receipts) { return receipts.record(windows, date); }),
          "receipt");
    const std::string& desk = request.layout.configID;
    check(m_stores.usage.update([&](UsageStats& usage) {
        switch (request.purpose) {
        case RestorePurpose::restore:
            usage.recordRestore(windows, desk, date);
            break;
        case RestorePurpose::sceneSwitch:
            usage.recordSceneSwitch(windows, desk, date);
            break;
        case RestorePurpose::stashReturn:
            usage.recordStashUse(windows, desk, date);
            break;
        case RestorePurpose::undo:
            usage.recordUndo(windows, desk, date);
            break;
        }
    }),
          "usage");
}

void RestoreHistory::addFollowUp(const std::vector<std::size_t>& items) {
    amend(items, RestoreLog::Outcome::retried);
}

void RestoreHistory::addSettled(const std::vector<std::size_t>& items) {
    amend(items, RestoreLog::Outcome::restored);
}

void RestoreHistory::amend(const std::vector<std::size_t>& items, RestoreLog::Outcome outcome) {
    if (!m_latest || items.empty()) {
        return;
    }
    for (const std::size_t item : items) {
        m_latest->items.at(item).outcome = outcome;
        m_latest->items.at(item).reason.reset();
        m_latest->items.at(item).note.reset();
    }
    check(m_stores.restoreLog.replaceNewest(*m_latest), "entry");
    m_context.publisher.publish([](PublishedState& state) { ++state.restoreLogVersion; });
}

} // namespace vantrel
