// Downloads and installs updates with the standard updater of the bundled framework.
#pragma once

#include "VantrelCore/ports/AppUpdater.h"

#include <memory>

namespace vantrel {

class StandardUpdater final : public AppUpdater {
public:
    // Loads the framework from the application bundle. Its updater, which may show windows, starts once
    // launching has finished. Returns null if the application was built without the framework, or without the
    // address and the key of its updates.
    [[nodiscard]] static std::unique_ptr<StandardUpdater> start();

    ~StandardUpdater() override;

    void checkForUpdates() override;
    [[nodiscard]] bool automaticallyChecksForUpdates() const override;
    void setAutomaticallyChecksForUpdates(bool checks) override;

private:
    struct State;
    explicit StandardUpdater(std::unique_ptr<State> state);

    std::unique_ptr<State> m_state;
};

} // namespace vantrel
