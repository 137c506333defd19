// The fake platform's I/O Kit registry: services by class, each with properties, and a count of the handles
// to them.
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
    // Classes that the registry refuses to match, and names that make no matching dictionary.
    std::map<std::string, kern_return_t> matchingErrors;
    bool makesNoMatching = false;
    // In the order in which they were asked for.
    std::vector<std::string> askedClasses;
    // Handles that were given out and not released yet.
    std::size_t openHandles = 0;
};

[[nodiscard]] RegistryControl& registry();

} // namespace vantrel::fake
