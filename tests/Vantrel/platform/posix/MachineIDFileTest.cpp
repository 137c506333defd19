#include "Vantrel/platform/posix/MachineIDFile.h"

#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace vantrel;

TEST(MachineIDFile, TheFirstPlaceThatHoldsAnIdentityCounts) {
    const TemporaryFolder folder;
    PosixFileSystem files;
    const auto first = folder.path() / "first";
    const auto second = folder.path() / "second";
    MachineIDFile machine(files, {first, second});
    const auto write = [](const auto& file, const std::string& text) { std::ofstream(file) << text; };

    EXPECT_EQ(machine.machineID(), std::nullopt);
    const std::string old(32, 'a');
    write(second, old + "\n");
    EXPECT_EQ(machine.machineID(), old);
    for (const char* const nothing :
         {"", "uninitialized\n", "0123\n", "not-the-identity-of-any-computer\n"}) {
        write(first, nothing);
        EXPECT_EQ(machine.machineID(), old) << nothing;
    }
    write(first, std::string(32, '7') + "\n");
    EXPECT_EQ(machine.machineID(), std::string(32, '7'));
}
