#include "Vantrel/diagnostics/UpdateChecker.h"

#include "Vantrel/diagnostics/VendorServer.h"
#include "VantrelCore/updates/ChangelogResponse.h"
#include "VantrelCore/updates/UpdateOffer.h"

#include <utility>

namespace vantrel {

namespace {

constexpr const char* lastCheckKey = "updateChecker.lastCheck";
// In seconds.
constexpr double checkInterval = 21'600;
constexpr int found = 200;

} // namespace

UpdateChecker::UpdateChecker(Options options, UserDefaults& defaults, Clock& clock, MainQueue& queue,
                             HttpClient& http, AppLog& log)
    : m_options(std::move(options)), m_defaults(defaults), m_clock(clock), m_queue(queue), m_http(http),
      m_log(log) {}

void UpdateChecker::startup() {
    if (!VendorServer::isReal(m_options.apiServer)) {
        return;
    }
    checkIfDue();
    m_timer = m_queue.every(checkInterval, [this] { checkIfDue(); });
}

void UpdateChecker::checkForUpdates() {
    if (m_options.activateApplication) {
        m_options.activateApplication();
    }
    if (m_updater != nullptr) {
        m_updater->checkForUpdates();
    } else if (m_options.openPage) {
        m_options.openPage(m_options.website + "/download/");
    }
}

bool UpdateChecker::automaticallyChecksForUpdates() const {
    return m_updater != nullptr && m_updater->automaticallyChecksForUpdates();
}

void UpdateChecker::setAutomaticallyChecksForUpdates(bool checks) {
    if (m_updater != nullptr) {
        m_updater->setAutomaticallyChecksForUpdates(checks);
    }
}

void UpdateChecker::checkIfDue() {
    const Date now = m_clock.now();
    if (UpdateOffer::isDue(m_defaults.date(lastCheckKey), now)) {
        m_defaults.set(lastCheckKey, now);
        fetchAndApply();
    }
}

void UpdateChecker::fetchAndApply() {
    m_exchange = m_http.send({.url = m_options.apiServer + "/changelog"}, [this](const HttpResult& result) {
        const auto ended = std::move(m_exchange);
        const auto changelog =
            result && result->status == found ? ChangelogResponse::decode(result->body) : std::nullopt;
        if (changelog && !changelog->releases.empty()) {
            apply(changelog->releases.front().version);
        }
    });
}

void UpdateChecker::apply(const std::string& latest) {
    auto available = UpdateOffer::latestAvailable(latest, m_options.currentVersion);
    if (m_latestAvailable == available) {
        return;
    }
    m_latestAvailable = std::move(available);
    m_log.write("update check: latestAvailable changed");
    if (m_handler) {
        m_handler();
    }
}

} // namespace vantrel
