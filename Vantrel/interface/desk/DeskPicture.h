// What a drawing of a desk shows, as a value: its displays, and its windows in their stacking order.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"
#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/text/Translation.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct Layout;
struct PublishedState;
struct Scene;

struct DeskPicture {
    struct Window {
        enum class State : std::uint8_t {
            remembered,
            // A slot kept for an application that has no window.
            notRunning,
            // The application is running, but this window is not open.
            noWindow,
            // The last restore could not put it in its place.
            couldNotMove,
            // On screen, but not remembered.
            seen,
        };

        std::string bundleID;
        std::string appName;
        std::string title;
        // Where it belongs. In global coordinates, as are all frames here.
        Rect frame;
        State state = State::remembered;
        // Minimised, or on another virtual desktop: listed, not drawn.
        bool isOutOfSight = false;
        // Applying the scene opens its application, which is not running.
        bool opensWhenMissing = false;
        // Where it is now, if that is somewhere else.
        std::optional<Rect> now{};
        // The live window that it is, if that is known.
        std::optional<WindowID> live{};
        // On its way there: the share of the way that is done. It is drawn there, and not where it is now.
        std::optional<double> flight{};

        bool operator==(const Window&) const = default;
    };

    // With unique names.
    std::vector<DisplayInfo> displays;
    // Front to back.
    std::vector<Window> windows;
    // For displays that come and go: one per display, or none for all of them to be there.
    std::vector<double> displayOpacity{};

    bool operator==(const DeskPicture&) const = default;

    [[nodiscard]] std::size_t movedCount() const;

    // The active layout of the current desk, compared with the live windows as far as they are known; without
    // a layout, the live windows.
    [[nodiscard]] static DeskPicture ofCurrentDesk(const PublishedState& state);

    // A layout as it was remembered.
    [[nodiscard]] static DeskPicture ofLayout(const Layout& layout);

    // A scene on the displays it was saved on. Whether its applications are running is told as far as the
    // live windows are known.
    [[nodiscard]] static DeskPicture ofScene(const Scene& scene, const PublishedState& state);
};

// What screen readers read of a drawing.
namespace DeskSpeech {

// Also written into the slot.
inline constexpr const char* opensWhenMissing = marked("opens when missing");

// "left half", "upper right quarter", "centre"; empty for an ordinary place.
[[nodiscard]] std::string place(const Rect& window, const Rect& usable);

// "Terminal, build, left half of Studio Display".
[[nodiscard]] std::string window(const DeskPicture::Window& window, const std::vector<DisplayInfo>& displays);

// "2 displays, 9 windows".
[[nodiscard]] std::string desk(const DeskPicture& picture);

// The windows in reading order: display by display from left to right, on each from the top left.
[[nodiscard]] std::vector<std::size_t> order(const DeskPicture& picture);

} // namespace DeskSpeech

} // namespace vantrel
