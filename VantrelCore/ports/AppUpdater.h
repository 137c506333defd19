// Port: what downloads and installs updates, where the application comes with such a thing.
#pragma once

namespace vantrel {

// Used on the main thread.
class AppUpdater {
public:
    AppUpdater() = default;
    AppUpdater(const AppUpdater&) = delete;
    AppUpdater& operator=(const AppUpdater&) = delete;
    virtual ~AppUpdater() = default;

    // Looks for an update and shows what it finds.
    virtual void checkForUpdates() = 0;

    // Its own setting.
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool checks) = 0;
};

} // namespace vantrel
