#include "VantrelCore/displays/SameDesk.h"

#include "VantrelCore/displays/DisplayIdentity.h"

#include <algorithm>
#include <map>

namespace vantrel::SameDesk {

namespace {

// Whether the uuid stays the same on another connector.
bool hasOwnIdentity(const DisplayInfo& display, const Displays& desk) {
    if (!display.edidUUID) {
        return !display.uuid.starts_with("display-");
    }
    return !DisplayIdentity::serialFieldMissing(*display.edidUUID) &&
           std::ranges::count(desk, display.edidUUID, &DisplayInfo::edidUUID) == 1;
}

Likeness likeness(const DisplayInfo& a, const Displays& deskOfA, const DisplayInfo& b,
                  const Displays& deskOfB) {
    if (a.name != b.name || a.isBuiltin != b.isBuiltin) {
        return Likeness::different;
    }
    const bool isExchangeable =
        a.edidUUID == b.edidUUID && !hasOwnIdentity(a, deskOfA) && !hasOwnIdentity(b, deskOfB);
    return a.uuid == b.uuid || isExchangeable ? Likeness::certain : Likeness::possible;
}

// The layout of each desk that was saved last.
std::map<std::string, const Layout*> latestByDesk(const std::vector<Layout>& layouts) {
    std::map<std::string, const Layout*> latest;
    for (const Layout& layout : layouts) {
        const Layout*& found = latest[layout.configID];
        if (found == nullptr || found->savedAt <= layout.savedAt) {
            found = &layout;
        }
    }
    return latest;
}

} // namespace

Likeness likeness(const Displays& a, const Displays& b) {
    if (a.empty() || a.size() != b.size()) {
        return Likeness::different;
    }
    Likeness result = Likeness::certain;
    for (const DisplayInfo& display : a) {
        const auto other = std::ranges::find(b, display.frame, &DisplayInfo::frame);
        result = std::min(result, other == b.end() ? Likeness::different : likeness(display, a, *other, b));
    }
    return result;
}

std::optional<Remembered> find(const std::vector<Layout>& layouts, const std::string& configID,
                               const Displays& displays) {
    const Layout* best = nullptr;
    Likeness bestLikeness = Likeness::different;
    std::size_t certainDesks = 0;
    for (const auto& [desk, layout] : latestByDesk(layouts)) {
        const Likeness found = desk == configID ? Likeness::different : likeness(layout->displays, displays);
        certainDesks += found == Likeness::certain ? 1U : 0U;
        if (found > bestLikeness ||
            (found == bestLikeness && best != nullptr && layout->savedAt > best->savedAt)) {
            best = layout;
            bestLikeness = found;
        }
    }
    if (best == nullptr) {
        return std::nullopt;
    }
    return Remembered{best->configID, best->name, certainDesks == 1};
}

} // namespace vantrel::SameDesk
