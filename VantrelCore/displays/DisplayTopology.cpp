#include "VantrelCore/displays/DisplayTopology.h"

#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/displays/DisplayNaming.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <map>
#include <sodium.h>
#include <span>
#include <string_view>
#include <unordered_map>

namespace vantrel::DisplayTopology {

namespace {

std::string uuidText(const ActiveDisplay& display) {
    return display.uuid.value_or(fmt::format("display-{}", display.id));
}

std::array<unsigned char, crypto_hash_sha256_BYTES> sha256(std::string_view text) {
    std::array<unsigned char, crypto_hash_sha256_BYTES> digest{};
    crypto_hash_sha256(digest.data(), reinterpret_cast<const unsigned char*>(text.data()), text.size());
    return digest;
}

} // namespace

std::vector<DisplayInfo> displays(const std::vector<ActiveDisplay>& active,
                                  const std::vector<Screen>& screens,
                                  const std::vector<EdidHint>& edidHints) {
    std::unordered_map<DisplayID, const Screen*> screenOf;
    for (const auto& screen : screens) {
        if (screen.displayID) {
            screenOf[*screen.displayID] = &screen;
        }
    }
    std::map<std::string_view, const std::string*> edidUUIDOf;
    for (const auto& hint : edidHints) {
        if (hint.productName && hint.edidUUID) {
            edidUUIDOf[*hint.productName] = &*hint.edidUUID;
        }
    }
    std::vector<DisplayInfo> result;
    result.reserve(active.size());
    for (const auto& display : active) {
        auto& info = result.emplace_back();
        info.uuid = uuidText(display);
        info.name = display.isBuiltin ? "Built-in Display" : "External Display";
        info.frame = display.bounds;
        info.isBuiltin = display.isBuiltin;
        if (const auto screen = screenOf.find(display.id); screen != screenOf.end()) {
            info.name = screen->second->localizedName;
            info.visibleFrame = DisplayGeometry::usableFrame(display.bounds, screen->second->frame,
                                                             screen->second->visibleFrame);
        }
        if (const auto edid = edidUUIDOf.find(info.name); edid != edidUUIDOf.end()) {
            info.edidUUID = *edid->second;
        }
    }
    return result;
}

std::string configID(const std::vector<DisplayInfo>& displays) {
    std::vector<std::string> keys;
    keys.reserve(displays.size());
    for (const auto& display : displays) {
        keys.push_back(fmt::format("{}|{},{},{}x{}", display.uuid, wholePoints(display.frame.minX()),
                                   wholePoints(display.frame.minY()), wholePoints(display.frame.width()),
                                   wholePoints(display.frame.height())));
    }
    std::ranges::sort(keys);
    const auto digest = sha256(fmt::format("{}", fmt::join(keys, "\u00A7")));
    return fmt::format("{:02x}", fmt::join(std::span(digest).first<16>(), ""));
}

std::string configName(const std::vector<DisplayInfo>& displays) {
    std::vector<const DisplayInfo*> ordered;
    ordered.reserve(displays.size());
    for (const auto& display : displays) {
        ordered.push_back(&display);
    }
    const auto builtins = std::ranges::stable_partition(
        ordered, [](const DisplayInfo* display) { return !display->isBuiltin; });
    std::ranges::stable_sort(ordered.begin(), builtins.begin(), {},
                             [](const DisplayInfo* display) { return std::string_view(display->name); });
    const auto labels = DisplayNaming::labels(displays);
    std::vector<std::string_view> names;
    names.reserve(ordered.size());
    for (const auto* display : ordered) {
        const auto label = labels.find(display->uuid);
        names.push_back(label == labels.end() ? display->name : label->second);
    }
    return fmt::format("{}", fmt::join(names, " + "));
}

std::string uuid(DisplayID displayID, const std::vector<ActiveDisplay>& active) {
    const auto found = std::ranges::find(active, displayID, &ActiveDisplay::id);
    return uuidText(found == active.end() ? ActiveDisplay{.id = displayID, .bounds = {}, .uuid = std::nullopt}
                                          : *found);
}

} // namespace vantrel::DisplayTopology
