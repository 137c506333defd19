#include "VantrelCore/text/RestoreLogFormatting.h"
#include "VantrelCore/text/NumberText.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace vantrel::RestoreLogFormatting {

namespace {

using Outcome = RestoreLog::Outcome;

// The restore engine's reason for a window that no longer exists.
constexpr std::string_view closedReason = "window no longer exists";

std::int64_t countOf(const RestoreLog::Entry& entry, Outcome outcome) {
    return std::ranges::count(entry.items, outcome, &RestoreLog::Item::outcome);
}

bool wasClosed(const RestoreLog::Item& item) {
    return !item.reason || item.reason->empty() || (*item.reason == closedReason && !item.note);
}

void add(std::vector<std::string>& parts, std::int64_t count, std::string text) {
    if (count > 0) {
        parts.push_back(std::move(text));
    }
}

void addPutBack(std::vector<std::string>& parts, std::int64_t count) {
    add(parts, count, trn("{} put back", "{} put back", count));
}

void addRetried(std::vector<std::string>& parts, std::int64_t count) {
    add(parts, count, trn("{} needed a retry", "{} needed a retry", count));
}

void addFailed(std::vector<std::string>& parts, std::int64_t count) {
    add(parts, count, trn("{} could not move", "{} could not move", count));
}

void addClosed(std::vector<std::string>& parts, std::int64_t count) {
    add(parts, count, trn("{} was already closed", "{} were already closed", count));
}

std::string withReason(std::string_view label, const RestoreLog::Item& item) {
    const auto& said = item.note ? item.note : item.reason;
    return said && !said->empty() ? fmt::format("{}: {}", label, tr(said->c_str())) : std::string(label);
}

std::string joined(const std::vector<std::string>& parts) {
    return fmt::format("{}", fmt::join(parts, " · "));
}

} // namespace

std::string summary(const RestoreLog::Entry& entry) {
    const std::int64_t retried = countOf(entry, Outcome::retried);
    std::vector<std::string> parts;
    addPutBack(parts, countOf(entry, Outcome::restored) + retried);
    addRetried(parts, retried);
    addFailed(parts, countOf(entry, Outcome::failed));
    const std::int64_t closed = std::ranges::count_if(
        entry.items, [](const auto& item) { return item.outcome == Outcome::skipped && wasClosed(item); });
    addClosed(parts, closed);
    const std::int64_t skipped = countOf(entry, Outcome::skipped) - closed;
    add(parts, skipped, trn("{} was skipped", "{} were skipped", skipped));
    return parts.empty() ? tr("Nothing to put back") : joined(parts);
}

std::string label(const RestoreLog::Item& item) {
    switch (item.outcome) {
    case Outcome::restored:
        return tr("Put back");
    case Outcome::retried:
        return tr("Put back after a retry");
    case Outcome::failed:
        return withReason(tr("Could not move"), item);
    case Outcome::skipped:
        break;
    }
    return wasClosed(item) ? tr("Already closed") : withReason(tr("Skipped"), item);
}

bool hasProblems(const RestoreLog::Entry& entry) {
    return countOf(entry, Outcome::failed) > 0;
}

std::vector<RestoreLog::Item> ordered(std::vector<RestoreLog::Item> items) {
    constexpr std::array attentionOrder{Outcome::failed, Outcome::retried, Outcome::restored,
                                        Outcome::skipped};
    std::ranges::stable_sort(items, {}, [&](const RestoreLog::Item& item) {
        return std::ranges::find(attentionOrder, item.outcome) - attentionOrder.begin();
    });
    return items;
}

std::string reliabilitySummary(const AppReliability& app) {
    if (app.attempts() <= 0) {
        return tr("Nothing to put back yet");
    }
    std::vector<std::string> parts;
    addPutBack(parts, app.landed());
    addFailed(parts, app.failedCount);
    return joined(parts);
}

std::string reliabilityDetail(const AppReliability& app) {
    std::vector<std::string> parts;
    addRetried(parts, app.retriedCount);
    addClosed(parts, app.skippedCount);
    if (app.failedCount > 0 && app.lastFailureReason && !app.lastFailureReason->empty()) {
        parts.push_back(trf("Last problem: {}", tr(app.lastFailureReason->c_str())));
    }
    return joined(parts);
}

std::string elapsedCaption(double seconds) {
    // Capped at a century: a broken clock must not cause an overflow.
    const double duration = std::isnan(seconds) ? 0 : std::clamp(seconds, 0.0, 3.2e9);
    const std::int64_t tenths = std::llround(duration * 10);
    if (tenths < 100) {
        return trf("{} s", NumberText::oneDecimal(static_cast<double>(tenths) / 10));
    }
    const std::int64_t whole = std::llround(duration);
    return whole < 60 ? trf("{} s", whole) : trf("{} min {} s", whole / 60, whole % 60);
}

} // namespace vantrel::RestoreLogFormatting
