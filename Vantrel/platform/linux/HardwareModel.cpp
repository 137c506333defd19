#include "Vantrel/platform/linux/HardwareModel.h"

#include <fstream>

namespace vantrel {

namespace {

constexpr std::size_t longestModel = 100;

std::string firstLine(const std::filesystem::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    // Device tree strings are null-terminated.
    line = line.substr(0, std::min(line.find('\0'), longestModel));
    const auto last = line.find_last_not_of(" \t\r");
    return last == std::string::npos ? "" : line.substr(0, last + 1);
}

} // namespace

std::string hardwareModel(const std::filesystem::path& root) {
    // DMI on machines with BIOS or UEFI, the device tree on others.
    for (const char* file : {"sys/class/dmi/id/product_name", "proc/device-tree/model"}) {
        if (auto model = firstLine(root / file); !model.empty()) {
            return model;
        }
    }
    return "unknown";
}

} // namespace vantrel
