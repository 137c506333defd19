// The windows of an X server with an EWMH window manager.
#pragma once

#include "Vantrel/platform/x11/LastingMarks.h"
#include "Vantrel/platform/x11/WindowManagerWatch.h"
#include "Vantrel/platform/x11/X11Context.h"
#include "VantrelCore/ports/Desk.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {

class X11Desk final : public Desk {
public:
    // `context` is shared with other adapters and never null.
    explicit X11Desk(std::shared_ptr<X11Context> context)
        : m_context(std::move(context)), m_session(LastingMarks::session(*m_context->connection)),
          m_windowManagerWatch(m_context) {}

    // True while connected to a window manager that moves windows on request, as last seen: never waits for
    // the server. X11 asks no user for permission.
    [[nodiscard]] bool isTrusted() override;
    bool prompt() override { return isTrusted(); }
    [[nodiscard]] std::optional<std::string> session() const override { return m_session; }

    // Two round trips, and one more when there are windows that were not seen before.
    [[nodiscard]] DeskSnapshot capture(const CaptureFilter& filter) override;

    // One round trip.
    [[nodiscard]] std::vector<std::optional<DeskWindow>> look(std::span<const WindowID> windows) override;

    // Puts the requests for all windows in flight at once; see WindowWave.
    [[nodiscard]] std::vector<WindowOutcome> arrange(std::span<const WindowOrder> orders,
                                                     const MovePermit& permit) override;
    bool awaitQuiet() override;
    [[nodiscard]] std::vector<std::unique_ptr<UserMoveWatch>>
    watchUserMoves(std::span<const WindowID> windows) override;

private:
    void raise(std::span<const WindowOrder> orders, const MovePermit& permit,
               std::vector<WindowOutcome>& outcomes);
    void restack(std::span<const WindowOrder> orders, const MovePermit& permit,
                 std::vector<WindowOutcome>& outcomes);

    std::shared_ptr<X11Context> m_context;
    std::optional<std::string> m_session;
    WindowManagerWatch m_windowManagerWatch;
};

} // namespace vantrel
