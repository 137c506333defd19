// A window as an accessibility element.
#pragma once

#include "Vantrel/platform/macos/MacApplication.h"
#include "VantrelCore/ports/WindowElement.h"

#include <memory>

namespace vantrel {

class MacWindowElement final : public WindowElement {
public:
    // `application` is the window's own. Never null.
    MacWindowElement(CFRef<AXUIElementRef> element, std::shared_ptr<MacApplication> application);

    // In one exchange, or in one per attribute where the application does not answer to several at once.
    [[nodiscard]] WindowAttributes read(AttributeGroup group) override;

    // Every write is sent, also after one that was not answered. When one of the values cannot be made the
    // window is not touched.
    [[nodiscard]] std::vector<bool> write(std::span<const FrameWrite> writes) override;

    bool raise() override;

    [[nodiscard]] std::shared_ptr<void> beginMoves() override { return m_application->beginMoves(); }

private:
    CFRef<AXUIElementRef> m_element;
    std::shared_ptr<MacApplication> m_application;
};

} // namespace vantrel
