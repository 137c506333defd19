#include "Vantrel/licensing/LicenseManager.h"

#include "VantrelCore/licensing/EarliestUse.h"
#include "VantrelCore/licensing/LicenseAnswers.h"
#include "VantrelCore/licensing/LicenseLease.h"
#include "VantrelCore/licensing/LicenseNonce.h"
#include "VantrelCore/licensing/LicensedMachine.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

// In seconds. After the machine has slept, this is the longest delay before the trial's end is noticed.
constexpr double tickInterval = 3600;
// Nothing waits for the first renewal, so it does not slow down startup.
constexpr double firstRenewal = 5;
constexpr double readingInterval = 15;

std::string machineHash(MachineIdentity& machine) {
    const auto identity = machine.machineID();
    return identity ? LicensedMachine::hash(*identity) : "";
}

} // namespace

LicenseManager::LicenseManager(Options options, const StoreFiles& files, Clock& clock, MainQueue& queue,
                               HttpClient& http, MachineIdentity& machine)
    : m_options(std::move(options)), m_clock(clock), m_queue(queue), m_http(http),
      m_fileSystem(files.files()), m_machine(machineHash(machine)),
      m_key(LicenseDocuments::publicKey(m_options.publicKey)),
      m_files(m_options.supportDirectory / "license.json", m_options.recordCopy, m_machine, files) {}

void LicenseManager::start() {
    if (m_options.publicKey.empty()) {
        m_entitlement = LicenseDecision::notNeeded();
        return;
    }
    if (!m_key) {
        m_entitlement.reason = tr("This build's vendor key is invalid.");
        return;
    }
    const LicenseDecision::AtStart at{
        .main = m_files.readMain(),
        .copy = m_files.readCopy(),
        .earliestUse = [this] { return earliestUse(m_options.supportDirectory, m_fileSystem); },
        .machine = m_machine,
        .key = *m_key,
        .now = m_clock.now()};
    auto decided = LicenseDecision::start(at);
    m_files.keepAside(decided);
    m_lastTick = m_clock.monotonicSeconds();
    m_nextRenewal = m_lastTick + firstRenewal;
    keep(std::move(decided.record), std::move(decided.license));
    m_options.log("license: " + inEnglish([this] {
                      return LicenseDecision::entitlement(m_record, m_license, m_clock.now()).reason;
                  }));
    scheduleTick();
    scheduleReading();
}

void LicenseManager::scheduleReading() {
    m_reading.reset();
    // A license activated since then takes precedence.
    if (m_record.problem != LicenseProblem::unreadable) {
        return;
    }
    m_reading = m_queue.after(readingInterval, [this] {
        if (!m_exchange && m_record.problem == LicenseProblem::unreadable && m_files.areReadable()) {
            start();
        } else {
            scheduleReading();
        }
    });
}

bool LicenseManager::keep(LicenseRecord record, std::optional<License> license) {
    m_record = std::move(record);
    m_license = std::move(license);
    const bool isWritten = m_files.write(m_record);
    if (!isWritten) {
        m_options.log("license: the record could not be written");
    }
    decide();
    return isWritten;
}

void LicenseManager::decide() {
    auto entitlement = LicenseDecision::entitlement(m_record, m_license, m_clock.now());
    if (std::exchange(m_entitlement, std::move(entitlement)) != m_entitlement && m_handler) {
        m_handler();
    }
}

void LicenseManager::tick() {
    const double monotonic = m_clock.monotonicSeconds();
    const Date passed = dateAfter(m_record.latestSeen, monotonic - std::exchange(m_lastTick, monotonic));
    auto record = m_record;
    record.latestSeen = LicenseDecision::effectiveNow(record, m_license, std::max(passed, m_clock.now()));
    keep(std::move(record), m_license);
    renewWhenDue();
    scheduleTick();
}

void LicenseManager::scheduleTick() {
    m_tick.reset();
    if (!m_entitlement.changesAt && !m_license) {
        return;
    }
    double left = tickInterval;
    if (m_entitlement.changesAt) {
        left = std::min(left, secondsBetween(m_record.latestSeen, *m_entitlement.changesAt));
    }
    if (m_license && !m_renewal) {
        left = std::min(left, m_nextRenewal - m_clock.monotonicSeconds());
    }
    m_tick = m_queue.after(std::max(left, 1.0), [this] { tick(); });
}

LicenseAcceptance::Request LicenseManager::newRequest() const {
    return {.machine = m_machine, .key = *m_key, .nonce = LicenseNonce::make(), .held = {}, .now = {}};
}

void LicenseManager::renewWhenDue() {
    const double monotonic = m_clock.monotonicSeconds();
    if (isLockedOut()) {
        m_nextRenewal = std::min(m_nextRenewal, monotonic + tickInterval);
    }
    if (!m_license || m_exchange || m_renewal || monotonic < m_nextRenewal) {
        return;
    }
    if (!LicenseLease::isDue(*m_license, m_record.latestSeen)) {
        m_nextRenewal = monotonic + tickInterval;
        return;
    }
    auto request = newRequest();
    request.held = m_license;
    m_renewal = m_http.send(LicenseAnswers::renewal(m_options.apiServer, *m_license, request.nonce),
                            [this, request](const HttpResult& result) {
                                const auto ended = std::move(m_renewal);
                                takeRenewal(result, request);
                                scheduleTick();
                            });
}

bool LicenseManager::isLockedOut() const {
    return !m_entitlement.isEntitled() && !m_record.withdrawn;
}

void LicenseManager::takeRenewal(const HttpResult& result, const LicenseAcceptance::Request& request) {
    auto present = request;
    present.now = m_clock.now();
    // For the log.
    auto renewal = inEnglish([&] { return LicenseAcceptance::renewal(m_record, result, present); });
    if (renewal.record != m_record) {
        keep(std::move(renewal.record), std::move(renewal.license));
    }
    m_options.log("license: " + renewal.sentence);
    m_failedRenewals = renewal.isRenewed ? 0 : m_failedRenewals + 1;
    m_nextRenewal =
        m_clock.monotonicSeconds() + LicenseLease::secondsToNextAttempt(m_failedRenewals, isLockedOut());
}

std::optional<std::string> LicenseManager::hindrance() const {
    if (m_entitlement.kind == Entitlement::Kind::notNeeded || !m_key) {
        return m_entitlement.reason;
    }
    if (m_machine.empty()) {
        return tr("This computer has no machine ID to which a license can be bound.");
    }
    if (m_exchange) {
        return tr("A request to the server is already in progress.");
    }
    return std::nullopt;
}

void LicenseManager::activate(const std::string& key, Done done) {
    if (const auto reason = hindrance()) {
        done(std::unexpected(*reason));
        return;
    }
    const auto typed = LicenseAnswers::key(key);
    if (!typed) {
        done(std::unexpected(tr("That is not a license key.")));
        return;
    }
    const auto request = newRequest();
    send(LicenseAnswers::activation(m_options.apiServer, *typed, m_machine, request.nonce), done,
         [this, request](const HttpResult& result) { return takeLicense(result, request); });
}

void LicenseManager::deactivate(Done done) {
    if (const auto reason = hindrance()) {
        done(std::unexpected(*reason));
        return;
    }
    if (!m_license) {
        done(std::unexpected(tr("There is no license on this computer.")));
        return;
    }
    send(LicenseAnswers::deactivation(m_options.apiServer, *m_license), done,
         [this](const HttpResult& result) { return dropLicense(result); });
}

void LicenseManager::send(const HttpRequest& request, const Done& done,
                          std::function<std::expected<void, std::string>(const HttpResult&)> answered) {
    // The user need not wait for a renewal.
    m_renewal.reset();
    m_exchange = m_http.send(request, [this, done, answered = std::move(answered)](const HttpResult& result) {
        const auto ended = std::move(m_exchange);
        const auto outcome = answered(result);
        if (!outcome) {
            m_options.log("license: " + outcome.error());
        }
        scheduleTick();
        done(outcome);
    });
}

std::expected<void, std::string> LicenseManager::takeLicense(const HttpResult& result,
                                                             const LicenseAcceptance::Request& request) {
    auto document = LicenseAnswers::activated(result);
    if (!document) {
        return std::unexpected(std::move(document.error()));
    }
    auto present = request;
    present.now = m_clock.now();
    auto accepted = LicenseAcceptance::accept(m_record, *document, present);
    if (!accepted) {
        return std::unexpected(fmt::format("{} {} {}", tr("The server's response was not accepted."),
                                           LicenseProblems::sentence(accepted.error()),
                                           tr("Nothing was changed.")));
    }
    const bool isWritten = keep(std::move(accepted->record), std::move(accepted->license));
    m_failedRenewals = 0;
    m_nextRenewal = m_clock.monotonicSeconds() + tickInterval;
    m_options.log("license: activated");
    return isWritten
               ? std::expected<void, std::string>{}
               : std::unexpected(tr("The license is valid only until Vantrel quits, because it could not be "
                                    "written to disk. Fix the disk problem and activate it again."));
}

std::expected<void, std::string> LicenseManager::dropLicense(const HttpResult& result) {
    if (auto agreement = LicenseAnswers::deactivated(result); !agreement) {
        return agreement;
    }
    auto record = m_record;
    record.deactivated.push_back(m_license->id);
    record.document.reset();
    const bool isWritten = keep(std::move(record), std::nullopt);
    m_options.log("license: deactivated");
    return isWritten ? std::expected<void, std::string>{}
                     : std::unexpected(
                           tr("The license was returned, but the change could not be written to disk."));
}

} // namespace vantrel
