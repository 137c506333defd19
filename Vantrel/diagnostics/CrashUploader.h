// Sends the crash reports of former runs to the vendor's server, one after another, and deletes what the
// server has taken.
#pragma once

#include "Vantrel/controller/AppLog.h"
#include "Vantrel/controller/Settings.h"
#include "VantrelCore/diagnostics/SystemDescription.h"
#include "VantrelCore/ports/FileSystem.h"
#include "VantrelCore/ports/HttpClient.h"
#include "VantrelCore/ports/MainQueue.h"

#include <deque>
#include <filesystem>
#include <memory>
#include <string>

namespace vantrel {

// Used on the main thread. Destroying it ends the upload under way; its report stays.
class CrashUploader {
public:
    static constexpr double delaySeconds = 5.0;

    struct Options {
        std::filesystem::path crashesDirectory;
        // Without a slash at the end.
        std::string apiServer;
        SystemDescription system;
    };

    CrashUploader(FileSystem& files, UserDefaults& defaults, HttpClient& http, MainQueue& queue, AppLog& log,
                  Options options);

    void uploadPendingReportsAfterDelay();
    // Lets go of the uploads that a former call has not begun.
    void uploadPendingReports();

private:
    // As the setting says once the delay is over; without it, a server that belongs to nobody gets nothing.
    // There are at most five reports all the same.
    [[nodiscard]] bool isSendingAllowed() const;
    void uploadNext();
    // False when it cannot be read.
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
};

} // namespace vantrel
