// The desk of a platform that gives window elements, such as macOS: joins them with the on-screen list, gives
// each window an identity, and works through a wave of orders with one worker per application, so that an
// application that hangs delays no other.
#pragma once

#include "VantrelCore/ports/Accessibility.h"
#include "VantrelCore/ports/Background.h"
#include "VantrelCore/ports/Desk.h"
#include "VantrelCore/windows/AXWindowHandle.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace vantrel {

class AccessibilityDesk final : public Desk {
public:
    AccessibilityDesk(Accessibility& accessibility, Background& background)
        : m_accessibility(accessibility), m_background(background) {}

    [[nodiscard]] bool isTrusted() override { return m_accessibility.isTrusted(); }
    bool prompt() override { return m_accessibility.prompt(); }
    bool awaitQuiet() override { return m_accessibility.awaitQuiet(); }

    [[nodiscard]] DeskSnapshot capture(const CaptureFilter& filter) override;
    [[nodiscard]] std::vector<WindowOutline> outlines() override;
    [[nodiscard]] std::vector<std::optional<DeskWindow>> look(std::span<const WindowID> windows) override;
    [[nodiscard]] std::vector<WindowOutcome> arrange(std::span<const WindowOrder> orders,
                                                     const MovePermit& permit) override;
    [[nodiscard]] std::vector<std::unique_ptr<UserMoveWatch>>
    watchUserMoves(std::span<const WindowID> windows) override;

    // The identity of the element's window; the same for every element of that window.
    [[nodiscard]] WindowID identify(const RunningApp& app, const std::shared_ptr<WindowElement>& element);

private:
    struct Known {
        RunningApp app;
        AXWindowHandle handle;
    };

    [[nodiscard]] std::optional<Known> find(WindowID window);
    // Adds the windows that the last capture had and that the application no longer lists, but that still
    // exist.
    void addUnlisted(const RunningApp& app, std::vector<WindowReading>& windows);
    void forgetOthers(const std::vector<RunningApp>& running, const std::set<WindowID>& seen);
    enum class Purpose : std::uint8_t { read, move };
    // Calls `work` with the index and the window of each that is known; those of one process in turn.
    void forEach(std::span<const WindowID> windows, Purpose purpose,
                 const std::function<void(std::size_t index, const Known& window)>& work);

    Accessibility& m_accessibility;
    Background& m_background;
    std::mutex m_mutex;
    std::uint64_t m_last = 0;
    std::map<WindowID, Known> m_known;
    // The windows of each process in its last capture.
    std::map<std::int32_t, std::set<WindowID>> m_captured;
};

} // namespace vantrel
