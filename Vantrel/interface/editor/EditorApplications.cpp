#include "Vantrel/interface/editor/EditorApplications.h"

#include "VantrelCore/text/LocalizedComparison.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <utility>

namespace vantrel::EditorApplications {

std::vector<ListRow> rows(std::vector<EditorApplication> applications, std::string_view searched) {
    const std::string sought = Unicode::lowercased(Unicode::trimmed(std::string(searched)));
    std::erase_if(applications, [&](const EditorApplication& each) {
        return Unicode::lowercased(each.name).find(sought) == std::string::npos;
    });
    std::ranges::stable_sort(applications, [](const EditorApplication& a, const EditorApplication& b) {
        const bool isOpen = a.windows > 0;
        return isOpen != (b.windows > 0) ? isOpen : LocalizedComparison::caseInsensitive(a.name, b.name) < 0;
    });
    std::vector<ListRow> rows;
    bool hasOpen = false;
    bool hasInstalled = false;
    for (const EditorApplication& each : applications) {
        const bool isOpen = each.windows > 0;
        if (!std::exchange(isOpen ? hasOpen : hasInstalled, true)) {
            // No identifier of an application begins with a space.
            rows.push_back({.id = isOpen ? " open" : " installed",
                            .kind = ListRow::Kind::heading,
                            .title = isOpen ? tr("Open now") : tr("Installed")});
        }
        rows.push_back({.id = each.bundleID,
                        .title = each.name,
                        .note = isOpen ? std::to_string(each.windows) : "",
                        .bundleID = each.bundleID});
    }
    return rows;
}

} // namespace vantrel::EditorApplications
