#include "Vantrel/controller/MovePermit.h"

#include <utility>

namespace vantrel {

namespace {

class PermittedWindow final : public WindowElement {
public:
    PermittedWindow(std::shared_ptr<WindowElement> window, std::shared_ptr<const MovePermit> permit)
        : m_window(std::move(window)), m_permit(std::move(permit)) {}

    WindowAttributes read(AttributeGroup group) override {
        return m_permit->isRevoked() ? WindowAttributes{} : m_window->read(group);
    }

    std::vector<bool> write(std::span<const FrameWrite> writes) override {
        if (m_permit->isRevoked()) {
            return std::vector<bool>(writes.size(), false);
        }
        m_permit->noteUse();
        return m_window->write(writes);
    }

    std::shared_ptr<void> beginMoves() override {
        return m_permit->isRevoked() ? nullptr : m_window->beginMoves();
    }

    std::unique_ptr<UserMoveWatch> watchUserMoves() override {
        return m_permit->isRevoked() ? nullptr : m_window->watchUserMoves();
    }

    bool raise() override { return !m_permit->isRevoked() && m_window->raise(); }

private:
    std::shared_ptr<WindowElement> m_window;
    std::shared_ptr<const MovePermit> m_permit;
};

} // namespace

std::vector<CurrentWindow> underPermit(std::vector<CurrentWindow> windows,
                                       const std::shared_ptr<const MovePermit>& permit) {
    for (CurrentWindow& window : windows) {
        window.handle = AXWindowHandle(std::make_shared<PermittedWindow>(window.handle.element(), permit));
    }
    return windows;
}

} // namespace vantrel
