// Records every restore: the history entry, receipt and usage totals for the user, and what was learned about
// the applications for the next restore.
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
    // Publishes the stored totals. The stores outlive this object.
    RestoreHistory(ControllerContext& context, ControllerStores& stores);

    // Records a restore that has ended, or was abandoned after it had moved windows. Everything is written in
    // the background; what could not be written is logged and no longer shown.
    void record(const RestoreRequest& request, const RestorePass::Result& result);

    // Marks these items of the last recorded report, by index, as retried: the follow-up has put them back.
    void addFollowUp(const std::vector<std::size_t>& items);

    // The windows of these items of the last recorded report have appeared since and are in place. They count
    // as if the restore itself had placed them.
    void addSettled(const std::vector<std::size_t>& items,
                    const std::vector<AppSizeBehaviorStore::Observation>& sizes);

    // Publishes the stored receipts and usage totals.
    void showStored();

    // Applications that have failed often.
    [[nodiscard]] std::set<std::string> stubbornBundleIDs() {
        return m_stores.reliability.stubbornBundleIDs();
    }

    // Worst first.
    [[nodiscard]] std::vector<AppReliability> reliability() { return m_stores.reliability.all(); }

    [[nodiscard]] RestoreLog log() { return m_stores.restoreLog.load(); }

private:
    void recordTotals(const RestoreRequest& request, std::int64_t windows, Date date);
    void publishTotals();
    // `note` is for those that had not failed before.
    void amend(const std::vector<std::size_t>& items, RestoreLog::Outcome outcome,
               const std::optional<std::string>& note = std::nullopt);
    // In the background.
    [[nodiscard]] Saving later(const char* what);
    [[nodiscard]] Saving entryLater();
    void noteFailure(const char* what);

    ControllerContext& m_context;
    ControllerStores& m_stores;
    // The newest log entry, while a follow-up may still add to it.
    std::optional<RestoreLog::Entry> m_latest;
};

} // namespace vantrel
