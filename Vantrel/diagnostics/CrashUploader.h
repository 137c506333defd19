// Uploads the crash reports of earlier runs to the vendor's server, one at a time, and deletes those that the
// server has accepted.
#pragma once

#include "Vantrel/controller/AppLog.h"
#include "Vantrel/controller/Settings.h"
#include "VantrelCore/diagnostics/SystemDescription.h"
#include "VantrelCore/ports/FileSystem.h"
#include "VantrelCore/ports/HttpClient.h"
#include "VantrelCore/ports/MainQueue.h"

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace vantrel {

// Used on the main thread. Destroying it cancels the current upload; its report is kept.
class CrashUploader {
public:
    static constexpr double delaySeconds = 5.0;

    struct Options {
        std::filesystem::path crashesDirectory;
        // Without a trailing slash.
        std::string apiServer;
        SystemDescription system;
    };

    CrashUploader(FileSystem& files, UserDefaults& defaults, HttpClient& http, MainQueue& queue, AppLog& log,
                  Options options);

    void uploadPendingReportsAfterDelay();
    // Replaces the queue of an earlier call.
    void uploadPendingReports();
    // At the user's request, so whatever the setting says. Calls `done` when every report has been tried.
    void sendPendingReports(std::function<void()> done);
    // Reads the folder.
    [[nodiscard]] std::size_t pendingReports() const;

private:
    // Reads the setting once the delay is over. If unset, reports are sent only to a real server. At most
    // five reports are kept in any case.
    [[nodiscard]] bool isSendingAllowed() const;
    void queuePendingReports();
    void uploadNext();
    // Returns false when the report cannot be read.
    [[nodiscard]] bool upload(const std::filesystem::path& report);

    FileSystem& m_files;
    Settings m_settings;
    HttpClient& m_http;
    MainQueue& m_queue;
    AppLog& m_log;
    Options m_options;
    std::deque<std::filesystem::path> m_pending;
    std::unique_ptr<ScheduledWork> m_start;
    std::unique_ptr<HttpExchange> m_exchange;
    std::function<void()> m_done = [] {};
};

} // namespace vantrel
