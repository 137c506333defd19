// The program's item in the Mac's menu bar.
#pragma once

#include "VantrelCore/ports/MenuBarItem.h"

#include <memory>

namespace vantrel {

class MacMenuBarItem final : public MenuBarItem {
public:
    // Needs an application that has finished launching.
    MacMenuBarItem();
    ~MacMenuBarItem() override;

    void setHandlers(Handlers handlers) override;
    void setPicture(const std::vector<std::string>& resolutions) override;
    void setDescription(const std::string& text) override;
    [[nodiscard]] std::optional<Rect> frame() override;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace vantrel
