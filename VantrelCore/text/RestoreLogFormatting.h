// Captions for the restore history and for application reliability.
#pragma once

#include "VantrelCore/model/AppReliability.h"
#include "VantrelCore/model/RestoreLog.h"

#include <string>
#include <vector>

namespace vantrel::RestoreLogFormatting {

// Counts joined by middle dots, zero counts left out: "5 put back · 1 needed a retry · 1 could not move · 2
// were already closed". Windows that needed a retry also count as put back. "Nothing to put back" without
// items.
[[nodiscard]] std::string summary(const RestoreLog::Entry& entry);

// "Put back", "Put back after a retry", "Could not move: app rejected the move", "Already closed". A window
// skipped for another reason, or with a note, says so: "Skipped: another reason".
[[nodiscard]] std::string label(const RestoreLog::Item& item);

// True when a window could not be moved. Windows that needed a retry or were closed are not problems.
[[nodiscard]] bool hasProblems(const RestoreLog::Entry& entry);

// Sorted by need for attention: failed, retried, restored, skipped; otherwise in the given order.
[[nodiscard]] std::vector<RestoreLog::Item> ordered(std::vector<RestoreLog::Item> items);

// "7 put back · 1 could not move"; "Nothing to put back yet" when no window was ever attempted.
[[nodiscard]] std::string reliabilitySummary(const AppReliability& app);

// Details that the summary omits: "2 needed a retry · 1 was already closed · Last problem: app rejected the
// move". Empty when there is nothing more to say.
[[nodiscard]] std::string reliabilityDetail(const AppReliability& app);

// A duration at a glance: "0.8 s" below ten seconds, then "12 s", from one minute "2 min 5 s".
[[nodiscard]] std::string elapsedCaption(double seconds);

} // namespace vantrel::RestoreLogFormatting
