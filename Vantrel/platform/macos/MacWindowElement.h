// A window as an accessibility element.
#pragma once

#include "Vantrel/platform/macos/MacApplication.h"
#include "VantrelCore/ports/WindowElement.h"

#include <memory>

namespace vantrel {

class MacWindowElement final : public WindowElement {
public:
    // `application` owns the window and must not be null.
    MacWindowElement(CFRef<AXUIElementRef> element, std::shared_ptr<MacApplication> application);

    [[nodiscard]] bool isSameWindow(const WindowElement& other) const override;

    // Takes one exchange, or one per attribute if the application does not support batches.
    [[nodiscard]] WindowAttributes read(AttributeGroup group) override;

    // Sends every write, even after one without a reply. If a value cannot be created, sends none.
    [[nodiscard]] std::vector<bool> write(std::span<const FrameWrite> writes) override;

    bool setMinimized(bool isMinimized) override;
    bool raise() override;

    [[nodiscard]] std::shared_ptr<void> beginMoves() override { return m_application->beginMoves(); }

    [[nodiscard]] std::unique_ptr<UserMoveWatch> watchUserMoves() override;

private:
    CFRef<AXUIElementRef> m_element;
    std::shared_ptr<MacApplication> m_application;
};

} // namespace vantrel
