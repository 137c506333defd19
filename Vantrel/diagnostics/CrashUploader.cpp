#include "Vantrel/diagnostics/CrashUploader.h"

#include "Vantrel/diagnostics/CrashUpload.h"
#include "Vantrel/diagnostics/PendingCrashReports.h"
#include "Vantrel/diagnostics/VendorServer.h"

#include <utility>

namespace vantrel {

namespace {

// A report that cannot be deleted now is processed again at the next start.
void ignoreFailure(const std::error_code& /*error*/) {}

} // namespace

CrashUploader::CrashUploader(FileSystem& files, UserDefaults& defaults, HttpClient& http, MainQueue& queue,
                             AppLog& log, Options options)
    : m_files(files), m_settings(defaults), m_http(http), m_queue(queue), m_log(log),
      m_options(std::move(options)) {}

void CrashUploader::uploadPendingReportsAfterDelay() {
    m_start = m_queue.after(delaySeconds, [this] { uploadPendingReports(); });
}

void CrashUploader::uploadPendingReports() {
    queuePendingReports();
    if (isSendingAllowed()) {
        uploadNext();
    }
}

void CrashUploader::sendPendingReports(std::function<void()> done) {
    m_done = std::move(done);
    queuePendingReports();
    uploadNext();
}

std::size_t CrashUploader::pendingReports() const {
    return PendingCrashReports::plan(
               m_files.list(m_options.crashesDirectory).value_or(std::vector<FileEntry>{}))
        .pending.size();
}

void CrashUploader::queuePendingReports() {
    m_exchange.reset();
    const auto plan = PendingCrashReports::plan(
        m_files.list(m_options.crashesDirectory).value_or(std::vector<FileEntry>{}));
    for (const auto& report : plan.surplus) {
        ignoreFailure(m_files.remove(report));
    }
    m_pending.assign(plan.pending.begin(), plan.pending.end());
}

bool CrashUploader::isSendingAllowed() const {
    return m_settings.sendCrashReports().value_or(VendorServer::isReal(m_options.apiServer));
}

void CrashUploader::uploadNext() {
    bool isUnderWay = false;
    while (!isUnderWay && !m_pending.empty()) {
        const auto report = std::move(m_pending.front());
        m_pending.pop_front();
        isUnderWay = upload(report);
    }
    if (!isUnderWay) {
        std::exchange(m_done, [] {})();
    }
}

bool CrashUploader::upload(const std::filesystem::path& report) {
    const auto text = m_files.read(report);
    if (!text) {
        return false;
    }
    const auto request =
        CrashUpload::request(m_options.apiServer, m_options.system, report.filename().string(), *text);
    m_exchange = m_http.send(request, [this, report](const HttpResult& result) {
        const auto outcome = CrashUpload::outcome(result);
        if (outcome == CrashUpload::Outcome::uploaded) {
            ignoreFailure(m_files.remove(report));
        }
        m_log.write(CrashUpload::message(outcome));
        uploadNext();
    });
    return true;
}

} // namespace vantrel
