// What the machine and the program say of themselves.
#include "Vantrel/platform/linux/HardwareModel.h"
#include "Vantrel/platform/linux/ProgramBuild.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

TEST(Machine, ReadsItsModelFromFirmwareOrDeviceTree) {
    const TemporaryFolder root;
    EXPECT_EQ(hardwareModel(root.path()), "unknown");
    putText(root.path() / "proc/device-tree/model", std::string("Board 4\0", 8));
    EXPECT_EQ(hardwareModel(root.path()), "Board 4");
    putText(root.path() / "sys/class/dmi/id/product_name", "Laptop 9 \n");
    EXPECT_EQ(hardwareModel(root.path()), "Laptop 9");
}

TEST(Machine, ReportsTheLinkersBuildId) {
    EXPECT_THAT(programBuild(), ::testing::MatchesRegex("[0-9a-f]{40}"));
}

} // namespace
} // namespace vantrel
