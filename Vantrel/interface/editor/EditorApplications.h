// The applications that the scene editor offers.
#pragma once

#include "Vantrel/interface/lists/ListRow.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

struct EditorApplication {
    std::string bundleID;
    std::string name;
    // Open now; 0 for one that is only installed.
    std::size_t windows = 0;

    bool operator==(const EditorApplication&) const = default;
};

namespace EditorApplications {

// By name, those that are open first; only those whose name contains what is searched, ignoring case. A row's
// id is the application's identifier.
[[nodiscard]] std::vector<ListRow> rows(std::vector<EditorApplication> applications,
                                        std::string_view searched);

} // namespace EditorApplications

} // namespace vantrel
