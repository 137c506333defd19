// The machine ID of a Linux system, created at installation.
#pragma once

#include "VantrelCore/ports/FileSystem.h"
#include "VantrelCore/ports/MachineIdentity.h"

#include <filesystem>
#include <vector>

namespace vantrel {

class MachineIDFile final : public MachineIdentity {
public:
    // Tries `places` in order.
    explicit MachineIDFile(FileSystem& files, std::vector<std::filesystem::path> places = {
                                                  "/etc/machine-id", "/var/lib/dbus/machine-id"});

    [[nodiscard]] std::optional<std::string> machineID() override;

private:
    FileSystem& m_files;
    std::vector<std::filesystem::path> m_places;
};

} // namespace vantrel
