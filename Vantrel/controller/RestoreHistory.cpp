#include "Vantrel/controller/RestoreHistory.h"

#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>
#include <tuple>
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

const char* nameOf(Pairing pairing) {
    switch (pairing) {
    case Pairing::known:
        return "known";
    case Pairing::sameTitle:
        return "sameTitle";
    case Pairing::nearTitle:
        return "nearTitle";
    case Pairing::order:
        break;
    }
    return "order";
}

std::optional<RestoreLog::Move> logMove(const std::optional<RestoreReport::Move>& move) {
    if (!move) {
        return std::nullopt;
    }
    return RestoreLog::Move{nameOf(move->by), move->from, move->target, move->achieved};
}

std::vector<RestoreLog::Item> logItems(const RestoreReport& report) {
    std::vector<RestoreLog::Item> items;
    items.reserve(report.items.size());
    for (const RestoreReport::Item& item : report.items) {
        const auto& [kind, reason, note] = item.outcome;
        items.push_back({item.appName, item.bundleID, item.title, outcome(kind),
                         reason.empty() ? std::nullopt : std::optional(reason),
                         note.empty() ? std::nullopt : std::optional(note), logMove(item.move)});
    }
    return items;
}

} // namespace

RestoreHistory::RestoreHistory(ControllerContext& context, ControllerStores& stores)
    : m_context(context), m_stores(stores) {
    showStored();
}

void RestoreHistory::showStored() {
    publishTotals();
    m_context.publisher.publish<HistoryTopic>([](auto& history) { ++history.restoreLogVersion; });
}

Saving RestoreHistory::later(const char* what) {
    return Saving::later([this, what](bool isWritten) {
        if (!isWritten) {
            noteFailure(what);
        }
    });
}

Saving RestoreHistory::entryLater() {
    return Saving::later([this](bool isWritten) {
        if (!isWritten) {
            // The newest stored entry may be an earlier one.
            m_latest.reset();
            noteFailure("entry");
        }
    });
}

void RestoreHistory::noteFailure(const char* what) {
    m_context.log(fmt::format("restore history: the {} could not be written", what));
    showStored();
}

void RestoreHistory::record(const RestoreRequest& request, const RestorePass::Result& result) {
    const Date now = m_context.ports.clock.now();
    const auto windows = static_cast<std::int64_t>(result.report.restoredCount());
    m_latest = RestoreLog::Entry{.date = now,
                                 .reason = request.reason,
                                 .sceneName = request.sceneName,
                                 .configID = request.layout.configID,
                                 .elapsed = result.report.elapsed,
                                 .items = logItems(result.report)};
    auto lessons = m_latest->items;
    if (result.isAbandoned) {
        m_latest->reason += " (abandoned: the displays changed)";
        // This program stopped; the applications did not refuse.
        std::erase_if(lessons, [](const RestoreLog::Item& item) {
            return item.outcome == RestoreLog::Outcome::failed;
        });
    }
    m_stores.reliability.record(lessons, now, later("reliability of applications"));
    m_stores.sizeBehavior.record(result.sizes, later("size behaviour of applications"));
    recordTotals(request, windows, now);
    m_stores.restoreLog.record(*m_latest, entryLater());
    m_context.publisher.publish<HistoryTopic>([&](auto& history) {
        ++history.restoreLogVersion;
        history.lastAction = LastAction{.windowCount = windows, .date = now, .reason = request.reason};
    });
    publishTotals();
}

void RestoreHistory::publishTotals() {
    m_context.publisher.publish<HistoryTopic>([&](auto& history) {
        history.receipts = m_stores.receipts.load();
        history.usage = m_stores.usage.load();
    });
}

void RestoreHistory::recordTotals(const RestoreRequest& request, std::int64_t windows, Date date) {
    std::ignore = m_stores.receipts.update(
        [&](RestoreReceipts& receipts) { return receipts.record(windows, date); }, later("receipt"));
    const std::string& desk = request.layout.configID;
    const auto count = [&](UsageStats& usage) {
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
    };
    std::ignore = m_stores.usage.update(count, later("usage"));
}

void RestoreHistory::addFollowUp(const std::vector<std::size_t>& items) {
    amend(items, RestoreLog::Outcome::retried,
          marked("something moved it after the restore; it was put back"));
}

void RestoreHistory::addSettled(const std::vector<std::size_t>& items,
                                const std::vector<AppSizeBehaviorStore::Observation>& sizes) {
    if (!m_latest || items.empty()) {
        return;
    }
    amend(items, RestoreLog::Outcome::restored);
    const Date now = m_context.ports.clock.now();
    const auto windows = std::ssize(items);
    std::vector<RestoreLog::Item> seated;
    for (const std::size_t item : items) {
        seated.push_back(m_latest->items.at(item));
    }
    m_stores.reliability.record(seated, now, later("reliability of applications"));
    m_stores.sizeBehavior.record(sizes, later("size behaviour of applications"));
    std::ignore = m_stores.receipts.update([&](RestoreReceipts& receipts) { receipts.record(windows, now); },
                                           later("receipt"));
    std::ignore = m_stores.usage.update(
        [&](UsageStats& usage) { usage.recordSettled(windows, m_latest->configID, now); }, later("usage"));
    publishTotals();
}

void RestoreHistory::amend(const std::vector<std::size_t>& items, RestoreLog::Outcome outcome,
                           const std::optional<std::string>& note) {
    if (!m_latest || items.empty()) {
        return;
    }
    for (const std::size_t index : items) {
        RestoreLog::Item& item = m_latest->items.at(index);
        item.note = item.outcome == RestoreLog::Outcome::failed ? std::nullopt : note;
        item.outcome = outcome;
        item.reason.reset();
    }
    m_stores.restoreLog.replaceNewest(*m_latest, entryLater());
    m_context.publisher.publish<HistoryTopic>([&](auto& history) {
        ++history.restoreLogVersion;
        // The newest entry can be an abandoned restore, whose report is not published.
        if (history.lastRestore && history.lastRestore->report.items.size() == m_latest->items.size()) {
            for (const std::size_t item : items) {
                history.lastRestore->report.items.at(item).outcome = {RestoreReport::Kind::retried, {}};
            }
        }
    });
}

} // namespace vantrel
