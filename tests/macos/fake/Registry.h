// Fake I/O Kit registry: services by class, each with properties, and a count of open handles.
#pragma once

#include "tests/macos/fake/CoreFoundationObjects.h"

#include <IOKit/IOKitLib.h>
#include <map>
#include <string>
#include <vector>

namespace vantrel::fake {

using Service = std::map<std::string, Value>;

struct RegistryControl {
    std::map<std::string, std::vector<Service>> services;
    // Errors of matching by class, and whether creating a matching dictionary fails.
    std::map<std::string, kern_return_t> matchingErrors;
    bool makesNoMatching = false;
    // In query order.
    std::vector<std::string> queriedClasses;
    // Handles not released yet.
    std::size_t openHandles = 0;
};

[[nodiscard]] RegistryControl& registry();

} // namespace vantrel::fake
