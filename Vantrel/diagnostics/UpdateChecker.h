// Checks for a newer release every few hours, and handles "Check for Updates…".
#pragma once

#include "Vantrel/controller/AppLog.h"
#include "VantrelCore/ports/AppUpdater.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/HttpClient.h"
#include "VantrelCore/ports/MainQueue.h"
#include "VantrelCore/ports/UserDefaults.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vantrel {

// Lives on the main thread.
class UpdateChecker {
public:
    struct Options {
        std::string currentVersion;
        // Without a trailing slash.
        std::string apiServer;
        std::string website;
        // Brings the application to the front, for platforms on which the updater shows windows.
        std::function<void()> activateApplication{};
        std::function<void(const std::string& url)> openPage{};
    };

    // The ports outlive it.
    UpdateChecker(Options options, UserDefaults& defaults, Clock& clock, MainQueue& queue, HttpClient& http,
                  AppLog& log);

    // Null for none; otherwise the updater outlives this object.
    void attach(AppUpdater* updater) { m_updater = updater; }

    // Checks now if a check is due, and regularly from then on. Never queries a server on a reserved domain.
    void startup();

    // Delegates to the attached updater, or else opens the download page.
    void checkForUpdates();

    // The newer version on offer.
    [[nodiscard]] const std::optional<std::string>& latestAvailable() const { return m_latestAvailable; }
    // Called when latestAvailable() changes.
    void setChangeHandler(std::function<void()> handler) { m_handler = std::move(handler); }

    // The attached updater's own setting; false without one.
    [[nodiscard]] bool automaticallyChecksForUpdates() const;
    void setAutomaticallyChecksForUpdates(bool checks);

private:
    void checkIfDue();
    void fetchAndApply();
    void apply(const std::string& latest);

    Options m_options;
    UserDefaults& m_defaults;
    Clock& m_clock;
    MainQueue& m_queue;
    HttpClient& m_http;
    AppLog& m_log;
    AppUpdater* m_updater = nullptr;
    std::optional<std::string> m_latestAvailable;
    std::function<void()> m_handler;
    std::unique_ptr<ScheduledWork> m_timer;
    std::unique_ptr<HttpExchange> m_exchange;
};

} // namespace vantrel
