// Port: downloads and installs updates, in builds that include an updater.
#pragma once

namespace vantrel {

// Used on the main thread.
class AppUpdater {
public:
    AppUpdater() = default;
    AppUpdater(const AppUpdater&) = delete;
    AppUpdater& operator=(const AppUpdater&) = delete;
    virtual ~AppUpdater() = default;

    // Checks for an update and shows the result.
    virtual void checkForUpdates() = 0;

    // The updater's own setting.
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool checks) = 0;
};

} // namespace vantrel
