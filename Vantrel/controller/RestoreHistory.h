// What every restore leaves behind: the history entry, receipt and usage for the user, and what it taught of
// the applications, for the next restore.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/ControllerStores.h"
#include "Vantrel/controller/RestorePass.h"
#include "Vantrel/controller/RestoreRequest.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vantrel {

class RestoreHistory {
public:
    // Publishes what is stored. The stores outlive it.
    RestoreHistory(ControllerContext& context, ControllerStores& stores);

    // A restore has come to its end, or was abandoned when it had moved windows. A write that fails is logged
    // and stops nothing.
    void record(const RestoreRequest& request, const RestorePass::Result& result);

    // These items of the report last recorded, by index, were displaced afterwards and put back once more;
    // its entry then says that they needed a retry.
    void addFollowUp(const std::vector<std::size_t>& items);

    // The windows of these items of the report last recorded have come since then and are in place. They
    // count like those that the restore itself has put there.
    void addSettled(const std::vector<std::size_t>& items,
                    const std::vector<AppSizeBehaviorStore::Observation>& sizes);

    // Publishes receipts and usage as they are stored.
    void showStored();

    // Applications that have failed often.
    [[nodiscard]] std::set<std::string> stubbornBundleIDs() {
        return m_stores.reliability.stubbornBundleIDs();
    }

    [[nodiscard]] RestoreLog log() { return m_stores.restoreLog.load(); }

private:
    void recordTotals(const RestoreRequest& request, std::int64_t windows, Date date);
    void publishTotals();
    void amend(const std::vector<std::size_t>& items, RestoreLog::Outcome outcome);
    void check(bool isWritten, const char* what);

    ControllerContext& m_context;
    ControllerStores& m_stores;
    // The newest entry of the log, as long as a follow-up may add to it.
    std::optional<RestoreLog::Entry> m_latest;
};

} // namespace vantrel
