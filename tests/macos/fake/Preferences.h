// Fake preferences and local notification centre.
#pragma once

#include "tests/macos/fake/CoreFoundationObjects.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vantrel::fake {

struct PreferencesControl {
    // Values by domain and key. The application's own domain is "own".
    std::map<std::string, std::map<std::string, Value>> domains;
    // Domains that cannot be written.
    std::map<std::string, bool> readOnly;
    // All writes and synchronisations, such as "set own autoRestore", "remove own x", "synchronise
    // com.apple.dock".
    std::vector<std::string> calls;
};

[[nodiscard]] PreferencesControl& preferences();

[[nodiscard]] std::size_t notificationObservers();
// Calls every observer of that name, as NSNotificationCenter's default centre would.
void postNotification(const std::string& name);
// Calls the distributed centre's observers of that name. The centre of an inactive program is suspended: it
// then calls only those that asked for immediate delivery.
void deliverDistributed(const std::string& name, bool isSuspended);

} // namespace vantrel::fake
