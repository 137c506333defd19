// What the surfaces offer that needs the vendor: buying, updates, sending crash reports. Shared by all
// systems.
#pragma once

#include "Vantrel/Vendor.h"
#include "Vantrel/diagnostics/CrashUploader.h"
#include "Vantrel/diagnostics/UpdateChecker.h"
#include "Vantrel/diagnostics/VendorServer.h"
#include "Vantrel/interface/Surfaces.h"

#include <functional>
#include <string>
#include <utility>

namespace vantrel {

// Everything passed by reference must outlive the surfaces. With `hasUpdater`, the system's own updater
// checks for updates.
inline void offerVendor(Surfaces::Services& services, const Vendor& vendor, UpdateChecker& updates,
                        CrashUploader& crashes, std::function<void(const std::string& url)> openPage,
                        bool hasUpdater = false) {
    const bool isReal = VendorServer::isReal(vendor.apiServer);
    services.panel.purchase = [page = VendorServer::purchasePage(vendor.apiServer),
                               open = std::move(openPage)] { open(page); };
    services.panel.showUpdate = [&updates] { updates.checkForUpdates(); };
    if (isReal || hasUpdater) {
        services.checkForUpdates = services.panel.showUpdate;
    }
    if (isReal) {
        services.panel.crashReports = [&crashes] { return crashes.pendingReports(); };
        services.panel.sendCrashReports = [&crashes](std::function<void()> done) {
            crashes.sendPendingReports(std::move(done));
        };
        services.settings.sendCrashReports = services.panel.sendCrashReports;
        services.settings.checkForUpdates = services.checkForUpdates;
        services.settings.purchase = services.panel.purchase;
    }
}

} // namespace vantrel
