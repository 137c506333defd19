// The standard updater of the framework that comes with the application, which downloads and installs
// updates.
#pragma once

#include <memory>

namespace vantrel {

// Used on the main thread.
class StandardUpdater {
public:
    // Loads the framework from the application's own folder and starts its updater. Null where the
    // application was built without it.
    [[nodiscard]] static std::unique_ptr<StandardUpdater> start();

    ~StandardUpdater();
    StandardUpdater(const StandardUpdater&) = delete;
    StandardUpdater& operator=(const StandardUpdater&) = delete;

    // Looks for an update and shows what it finds.
    void checkForUpdates();

    [[nodiscard]] bool automaticallyChecksForUpdates() const;
    void setAutomaticallyChecksForUpdates(bool checks);

private:
    struct State;
    explicit StandardUpdater(std::unique_ptr<State> state);

    std::unique_ptr<State> m_state;
};

} // namespace vantrel
