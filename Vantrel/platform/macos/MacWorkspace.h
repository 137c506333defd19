// Starts, hides and watches applications through the shared workspace.
#pragma once

#include "VantrelCore/ports/Workspace.h"

#include <memory>

namespace vantrel {

class MacWorkspace final : public Workspace {
public:
    using Log = std::function<void(const std::string& message)>;

    // Calls `log` on any thread when an application fails to start.
    explicit MacWorkspace(Log log);
    ~MacWorkspace() override;

    // As shown in the Finder.
    [[nodiscard]] std::optional<std::string> applicationName(const std::string& bundleID) override;
    // Starts the application without activating it.
    bool launch(const std::string& bundleID) override;
    bool hide(const std::string& bundleID) override;
    bool unhide(const std::string& bundleID) override;
    void setLaunchHandler(std::function<void(const RunningApp&)> handler) override;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace vantrel
