#include "Vantrel/diagnostics/PendingCrashReports.h"

#include "VantrelCore/diagnostics/CrashReportNames.h"

#include <algorithm>
#include <tuple>

namespace vantrel::PendingCrashReports {

Plan plan(std::vector<FileEntry> folder) {
    std::erase_if(folder, [](const FileEntry& entry) { return !CrashReportNames::isReport(entry.file); });
    std::ranges::sort(folder, {},
                      [](const FileEntry& entry) { return std::tie(entry.modified, entry.file); });
    const std::size_t surplus = folder.size() - std::min(folder.size(), most);
    Plan plan;
    for (std::size_t i = 0; i < folder.size(); ++i) {
        (i < surplus ? plan.surplus : plan.pending).push_back(folder[i].file);
    }
    return plan;
}

} // namespace vantrel::PendingCrashReports
