// Applications as wholes, through the shared workspace.
#pragma once

#include "VantrelCore/ports/Workspace.h"

#include <memory>

namespace vantrel {

class MacWorkspace final : public Workspace {
public:
    using Log = std::function<void(const std::string& message)>;

    // `log` hears of applications that did not start after all, on any thread.
    explicit MacWorkspace(Log log);
    ~MacWorkspace() override;

    // As the Finder shows it.
    [[nodiscard]] std::optional<std::string> applicationName(const std::string& bundleID) override;
    // The application does not come to the front.
    bool launch(const std::string& bundleID) override;
    bool hide(const std::string& bundleID) override;
    bool unhide(const std::string& bundleID) override;
    void setLaunchHandler(std::function<void(const RunningApp&)> handler) override;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace vantrel
