// The licence gate: keeps the record, lets the trial run, asks the vendor's server for a licence, renews it
// and gives it back. docs/licensing.md tells what it holds to.
#pragma once

#include "Vantrel/licensing/LicenseFiles.h"
#include "VantrelCore/licensing/LicenseAcceptance.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/HttpClient.h"
#include "VantrelCore/ports/LicenseGate.h"
#include "VantrelCore/ports/MachineIdentity.h"
#include "VantrelCore/ports/MainQueue.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace vantrel {

// Lives on the main thread. Without start() nobody is entitled.
class LicenseManager final : public LicenseGate {
public:
    struct Options {
        std::filesystem::path supportDirectory;
        // Where the copy of the record is kept, in another folder than that.
        std::filesystem::path recordCopy;
        std::string apiServer;
        // In hexadecimal digits; empty when no licence is needed.
        std::string publicKey;
        std::function<void(const std::string& message)> log;
    };

    // The ports outlive it.
    LicenseManager(Options options, const StoreFiles& files, Clock& clock, MainQueue& queue, HttpClient& http,
                   MachineIdentity& machine);

    // Reads what is stored; from then on the entitlement is true to it.
    void start();

    [[nodiscard]] const Entitlement& entitlement() const override { return m_entitlement; }
    void setChangeHandler(std::function<void()> handler) override { m_handler = std::move(handler); }
    void activate(const std::string& key, Done done) override;
    void deactivate(Done done) override;

private:
    // Why the server is not asked now; none when it is.
    [[nodiscard]] std::optional<std::string> hindrance() const;
    void ask(const HttpRequest& request, const Done& done,
             std::function<std::expected<void, std::string>(const HttpResult&)> answered);
    [[nodiscard]] std::expected<void, std::string> takeLicense(const HttpResult& result,
                                                               const LicenseAcceptance::Asked& asked);
    [[nodiscard]] std::expected<void, std::string> dropLicense(const HttpResult& result);
    // Takes over the record, writes it and tells of the change. False when it could not be written.
    bool keep(LicenseRecord record, std::optional<License> license);
    void decide();
    // Asks the server for a renewal if it is time; nobody is told, and nothing gets worse when it fails.
    void renewWhenDue();
    // Nothing but a renewal is missing.
    [[nodiscard]] bool isLockedOut() const;
    void takeRenewal(const HttpResult& result, const LicenseAcceptance::Asked& asked);
    [[nodiscard]] LicenseAcceptance::Asked question() const;
    // Lets the time that has passed count, whatever the clock says.
    void tick();
    void scheduleTick();
    // While a file cannot be read, it is tried again from time to time.
    void scheduleReading();

    Options m_options;
    Clock& m_clock;
    MainQueue& m_queue;
    HttpClient& m_http;
    FileSystem& m_fileSystem;
    // LicensedMachine's; empty on a computer without an identity.
    std::string m_machine;
    std::optional<LicenseDocuments::PublicKey> m_key;
    LicenseFiles m_files;
    LicenseRecord m_record;
    std::optional<License> m_license;
    Entitlement m_entitlement{.kind = Entitlement::Kind::refused, .reason = "The license was not read yet."};
    std::function<void()> m_handler;
    // On the monotonic clock.
    double m_lastTick = 0;
    std::unique_ptr<ScheduledWork> m_tick;
    std::unique_ptr<ScheduledWork> m_reading;
    // What the user asked for.
    std::unique_ptr<HttpExchange> m_exchange;
    std::unique_ptr<HttpExchange> m_renewal;
    // On the monotonic clock.
    double m_nextRenewal = 0;
    int m_failedRenewals = 0;
};

} // namespace vantrel
