// One saved arrangement of one desk: its displays and the windows on them.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/model/WindowRecord.h"

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct Layout {
    // The name of a desk's layout until the user names one.
    static constexpr const char* defaultName = "Default";

    // Identifies the desk (the display configuration); 32 lowercase hexadecimal characters.
    std::string configID;
    // The desk's readable name at save time.
    std::string name;
    // Names the arrangement within the desk.
    std::string layoutName;
    std::vector<DisplayInfo> displays;
    std::vector<WindowRecord> windows;
    Date savedAt;
    // Whether the user pinned the layout, so that learning leaves it alone; absent means false.
    std::optional<bool> pinned;
    // The windows that a picture of the visible desktop leaves out: minimised, full-screen, and on other
    // virtual desktops. Their zOrder continues that of `windows`. JSON: absent when there are none.
    std::vector<WindowRecord> otherWindows = {};

    bool operator==(const Layout&) const = default;

    [[nodiscard]] bool isPinned() const { return pinned.value_or(false); }

    [[nodiscard]] Layout withoutGhosts() const;

    // One string per window, "bundleID|X,Y,WxH" with the frame truncated to whole points, sorted by bytes.
    [[nodiscard]] std::vector<std::string> geometrySignature() const;

    // A copy in which `windows` holds the other windows as well.
    [[nodiscard]] Layout withOtherWindows() const;

    // Like geometrySignature(), but of every window and with its states and virtual desktop. Equal to it when
    // no window has any.
    [[nodiscard]] std::vector<std::string> placeSignature() const;

    // Same desk and layout name, and every window has the same place: nothing worth learning has changed.
    [[nodiscard]] bool hasSamePlaces(const Layout& other) const;

    // Same desk, layout name and geometry signature.
    [[nodiscard]] bool isEquivalent(const Layout& other) const;

    // Same desk, layout name and number of windows per application, and every window has a counterpart within
    // `tolerance` points, as FrameMatching pairs them.
    [[nodiscard]] bool geometryMatches(const Layout& other, double tolerance) const;
};

void to_json(nlohmann::json& json, const Layout& layout);
void from_json(const nlohmann::json& json, Layout& layout);

} // namespace vantrel
