// The license gate: keeps the record, runs the trial, and activates, renews and returns licenses through the
// vendor's server. The rules are in docs/licensing.md.
#pragma once

#include "Vantrel/licensing/LicenseFiles.h"
#include "VantrelCore/licensing/LicenseAcceptance.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/HttpClient.h"
#include "VantrelCore/ports/LicenseGate.h"
#include "VantrelCore/ports/MachineIdentity.h"
#include "VantrelCore/ports/MainQueue.h"
#include "VantrelCore/text/Translation.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace vantrel {

// Lives on the main thread. Until start() is called, nobody is entitled.
class LicenseManager final : public LicenseGate {
public:
    struct Options {
        std::filesystem::path supportDirectory;
        // The path of the record's copy, in a different folder.
        std::filesystem::path recordCopy;
        std::string apiServer;
        // In hexadecimal; empty when no license is needed.
        std::string publicKey;
        std::function<void(const std::string& message)> log;
    };

    // The ports outlive it.
    LicenseManager(Options options, const StoreFiles& files, Clock& clock, MainQueue& queue, HttpClient& http,
                   MachineIdentity& machine);

    // Reads the stored record and updates the entitlement from then on.
    void start();

    [[nodiscard]] const Entitlement& entitlement() const override { return m_entitlement; }
    void setChangeHandler(std::function<void()> handler) override { m_handler = std::move(handler); }
    void activate(const std::string& key, Done done) override;
    void deactivate(Done done) override;

private:
    // The reason why the server cannot be contacted now, if there is one.
    [[nodiscard]] std::optional<std::string> hindrance() const;
    void send(const HttpRequest& request, const Done& done,
              std::function<std::expected<void, std::string>(const HttpResult&)> answered);
    [[nodiscard]] std::expected<void, std::string> takeLicense(const HttpResult& result,
                                                               const LicenseAcceptance::Request& request);
    [[nodiscard]] std::expected<void, std::string> dropLicense(const HttpResult& result);
    // Stores and writes the record, and announces a changed entitlement. Returns false when it could not be
    // written.
    bool keep(LicenseRecord record, std::optional<License> license);
    void decide();
    // Requests a renewal if one is due. Failures are only logged and make nothing worse.
    void renewWhenDue();
    // True when only a renewal is missing.
    [[nodiscard]] bool isLockedOut() const;
    void takeRenewal(const HttpResult& result, const LicenseAcceptance::Request& request);
    [[nodiscard]] LicenseAcceptance::Request newRequest() const;
    // Counts the time that has passed, whatever the clock says.
    void tick();
    void scheduleTick();
    // Retries from time to time while a file cannot be read.
    void scheduleReading();

    Options m_options;
    Clock& m_clock;
    MainQueue& m_queue;
    HttpClient& m_http;
    FileSystem& m_fileSystem;
    // The hash from LicensedMachine; empty on a computer without a machine ID.
    std::string m_machine;
    std::optional<LicenseDocuments::PublicKey> m_key;
    LicenseFiles m_files;
    LicenseRecord m_record;
    std::optional<License> m_license;
    Entitlement m_entitlement{.kind = Entitlement::Kind::refused,
                              .reason = tr("The license has not been read yet.")};
    std::function<void()> m_handler;
    // On the monotonic clock, in seconds.
    double m_lastTick = 0;
    std::unique_ptr<ScheduledWork> m_tick;
    std::unique_ptr<ScheduledWork> m_reading;
    // The user's request.
    std::unique_ptr<HttpExchange> m_exchange;
    std::unique_ptr<HttpExchange> m_renewal;
    // On the monotonic clock, in seconds.
    double m_nextRenewal = 0;
    int m_failedRenewals = 0;
};

} // namespace vantrel
