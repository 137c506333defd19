#include "VantrelCore/text/RestoreLogFormatting.h"

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

void addCount(std::vector<std::string>& parts, std::int64_t count, std::string_view phrase) {
    if (count > 0) {
        parts.push_back(fmt::format("{}{}", count, phrase));
    }
}

void addClosedCount(std::vector<std::string>& parts, std::int64_t count) {
    addCount(parts, count, count == 1 ? " was already closed" : " were already closed");
}

std::string withReason(std::string_view label, const RestoreLog::Item& item) {
    const auto& said = item.note ? item.note : item.reason;
    return said && !said->empty() ? fmt::format("{}: {}", label, *said) : std::string(label);
}

std::string joined(const std::vector<std::string>& parts) {
    return fmt::format("{}", fmt::join(parts, " · "));
}

} // namespace

std::string summary(const RestoreLog::Entry& entry) {
    const std::int64_t retried = countOf(entry, Outcome::retried);
    std::vector<std::string> parts;
    addCount(parts, countOf(entry, Outcome::restored) + retried, " put back");
    addCount(parts, retried, " needed a retry");
    addCount(parts, countOf(entry, Outcome::failed), " could not move");
    const std::int64_t closed = std::ranges::count_if(
        entry.items, [](const auto& item) { return item.outcome == Outcome::skipped && wasClosed(item); });
    addClosedCount(parts, closed);
    const std::int64_t skipped = countOf(entry, Outcome::skipped) - closed;
    addCount(parts, skipped, skipped == 1 ? " was skipped" : " were skipped");
    return parts.empty() ? "Nothing to put back" : joined(parts);
}

std::string label(const RestoreLog::Item& item) {
    switch (item.outcome) {
    case Outcome::restored:
        return "Put back";
    case Outcome::retried:
        return "Put back after a retry";
    case Outcome::failed:
        return withReason("Could not move", item);
    case Outcome::skipped:
        break;
    }
    return wasClosed(item) ? "Already closed" : withReason("Skipped", item);
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
        return "Nothing to put back yet";
    }
    std::vector<std::string> parts;
    addCount(parts, app.landed(), " put back");
    addCount(parts, app.failedCount, " could not move");
    return joined(parts);
}

std::string reliabilityDetail(const AppReliability& app) {
    std::vector<std::string> parts;
    addCount(parts, app.retriedCount, " needed a retry");
    addClosedCount(parts, app.skippedCount);
    if (app.failedCount > 0 && app.lastFailureReason && !app.lastFailureReason->empty()) {
        parts.push_back("Last problem: " + *app.lastFailureReason);
    }
    return joined(parts);
}

std::string elapsedCaption(double seconds) {
    // Capped at a century: a broken clock must not cause an overflow.
    const double duration = std::isnan(seconds) ? 0 : std::clamp(seconds, 0.0, 3.2e9);
    const std::int64_t tenths = std::llround(duration * 10);
    if (tenths < 100) {
        return fmt::format("{}.{} s", tenths / 10, tenths % 10);
    }
    const std::int64_t whole = std::llround(duration);
    return whole < 60 ? fmt::format("{} s", whole) : fmt::format("{} min {} s", whole / 60, whole % 60);
}

} // namespace vantrel::RestoreLogFormatting
