// What restoring a layout would do to the windows as they are now, without moving any.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/windows/LiveWindow.h"
#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/WindowPairing.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

struct RestorePreview {
    enum class Fate : std::uint8_t {
        inPlace,
        wouldMove,
        // Its application is running, but this window is not open.
        noSuchWindow,
        // Its application is not running.
        notRunning,
        // The same, but the scene would start it.
        wouldOpen,
    };

    // The live window that a saved one pairs with.
    struct Match {
        WindowID window{};
        Pairing by = Pairing::sameTitle;
        std::string title;
        Rect frame;
        // The only open window of its application, and the only saved one.
        bool isOnlyOne = false;

        bool operator==(const Match&) const = default;
    };

    struct Window {
        // With the frame where it would go.
        WindowRecord saved;
        Fate fate = Fate::inPlace;
        // For the first two fates.
        std::optional<Match> match{};

        bool operator==(const Window&) const = default;
    };

    // One per saved window, front to back.
    std::vector<Window> windows;
    // Open windows that pair with none, front to back.
    std::vector<WindowRecord> unremembered;

    bool operator==(const RestorePreview&) const = default;

    [[nodiscard]] std::size_t count(Fate fate) const;
};

namespace RestorePreviews {

struct Live {
    const std::vector<LiveWindow>& windows;
    // The bundle identifiers of the running applications.
    const std::set<std::string>& running;
};

// `known` as in WindowPairing::pair().
[[nodiscard]] RestorePreview of(const Layout& layout, const WindowPairing::Known& known, const Live& live,
                                RestoreEngine::Sizes sizes);

// "would move", "in place", "no such window is open", "not running", "would be opened".
[[nodiscard]] std::string_view text(RestorePreview::Fate fate);

// What paired the two: "same title", "only one open".
[[nodiscard]] std::string_view text(const RestorePreview::Match& match);

// "2 windows would move · 7 in place · 1 not open"; "Nothing is remembered here yet" without windows.
[[nodiscard]] std::string summary(const RestorePreview& preview);

} // namespace RestorePreviews

} // namespace vantrel
