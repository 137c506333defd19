// Every stored layout by desk, and what a search looks through, prepared once for all keystrokes.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <map>
#include <string>
#include <vector>

namespace vantrel {

class DeskLibrary {
public:
    DeskLibrary() = default;
    explicit DeskLibrary(std::vector<Layout> layouts);

    // Null if there is no such layout. The desk's first one if `name` is empty.
    [[nodiscard]] const Layout* layout(const std::string& configID, const std::string& name) const;

    // Whether the name of the desk, of one of its layouts or of an application on it contains `text`, which
    // is in lower case.
    [[nodiscard]] bool isFound(const std::string& configID, const std::string& text) const;

private:
    struct Desk {
        std::vector<Layout> layouts;
        // In lower case, one per line.
        std::string searchable;
    };

    std::map<std::string, Desk> m_desks;
};

} // namespace vantrel
