// What the machine and the program say of themselves.
#include "Vantrel/platform/linux/HardwareModel.h"
#include "Vantrel/platform/linux/ProgramBuild.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <fstream>
#include <gmock/gmock.h>

namespace vantrel {
namespace {

TEST(Machine, HasTheModelOfItsFirmwareOrItsDeviceTree) {
    const TemporaryFolder root;
    EXPECT_EQ(hardwareModel(root.path()), "unknown");
    std::filesystem::create_directories(root.path() / "proc/device-tree");
    std::ofstream(root.path() / "proc/device-tree/model") << "Board 4" << '\0';
    EXPECT_EQ(hardwareModel(root.path()), "Board 4");
    std::filesystem::create_directories(root.path() / "sys/class/dmi/id");
    std::ofstream(root.path() / "sys/class/dmi/id/product_name") << "Laptop 9 \n";
    EXPECT_EQ(hardwareModel(root.path()), "Laptop 9");
}

TEST(Machine, KnowsTheBuildThatTheLinkerGaveTheProgram) {
    EXPECT_THAT(programBuild(), ::testing::MatchesRegex("[0-9a-f]{40}"));
}

} // namespace
} // namespace vantrel
