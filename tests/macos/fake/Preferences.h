// The fake platform's preferences and its local notification centre.
#pragma once

#include "tests/macos/fake/CoreFoundationObjects.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vantrel::fake {

struct PreferencesControl {
    // By domain and key; the application's own domain is "own".
    std::map<std::string, std::map<std::string, Value>> domains;
    // Domains that cannot be written.
    std::map<std::string, bool> readOnly;
    // Writes and synchronisations, as "set own autoRestore", "remove own x", "synchronise com.apple.dock".
    std::vector<std::string> calls;
};

[[nodiscard]] PreferencesControl& preferences();

[[nodiscard]] std::size_t notificationObservers();
// Calls every observer of that name, and posts it as NSNotificationCenter's default centre would.
void postNotification(const std::string& name);

} // namespace vantrel::fake
