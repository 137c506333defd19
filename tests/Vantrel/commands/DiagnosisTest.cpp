#include "Vantrel/commands/Diagnosis.h"

#include "tests/simulated/MemoryFileSystem.h"

#include <gmock/gmock.h>

namespace vantrel {

namespace {

using testing::Contains;
using testing::HasSubstr;
using Line = Diagnosis::Line;

struct DoctorTest : testing::Test {
    simulated::MemoryFileSystem files;
    std::expected<StatusMessage, std::string> status;

    DoctorTest() {
        status->version = "1.2";
        status->phase.name = "saved";
        files.put("/data/layouts.json", R"({"version": 2, "layouts": []})");
        files.put("/config/settings.conf", "");
    }

    Diagnosis examine() {
        return Doctor::examine({.files = files,
                                .supportDirectory = "/data",
                                .settingsFile = "/config/settings.conf",
                                .status = status,
                                .localDate = [](Date) { return std::string("today"); }});
    }
};

TEST_F(DoctorTest, EverythingIsSound) {
    const auto before = files.files();
    EXPECT_TRUE(examine().isSound()) << Doctor::text(examine());
    EXPECT_EQ(files.files(), before);
}

TEST_F(DoctorTest, OffersACopyWhoseFileIsMissing) {
    files.put("/data/usage.json.corrupt",
              R"({"restores":1,"windowsVantrel":1,"sceneSwitches":0,"stashUses":0,)"
              R"("undoUses":0,"deskIDs":[]})");
    EXPECT_THAT(examine().lines,
                Contains(Line{"files", false,
                              "usage.json.corrupt is a copy of usage.json from today; it can be put back",
                              "vantrelctl doctor --put-back usage.json.corrupt"}));
}

TEST_F(DoctorTest, SaysWhatIsAmiss) {
    const auto expectLine = [this](const std::string& part) {
        EXPECT_FALSE(examine().isSound());
        EXPECT_THAT(Doctor::text(examine()), HasSubstr("\n!  " + part));
    };
    files.put("/data/scenes.json", "[");
    expectLine("files          scenes.json cannot be used (invalid JSON at byte 2)");
    files.failReading("/config/settings.conf", std::errc::permission_denied);
    expectLine("files          /config/settings.conf cannot be read (Permission denied)");
    status->fileIncidents.emplace_back().text = "layouts.json could not be written.";
    expectLine("files          layouts.json could not be written.");
    status->phase.name = "needsPermission";
    expectLine("window manager no window manager that can move windows is running");
    status = std::unexpected("vantrel is not running.");
    expectLine("bus            vantrel is not running.");
    files.failAll(simulated::MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_THAT(Doctor::text(examine()), HasSubstr("/data cannot be written (No space left on device)"));
}

} // namespace

} // namespace vantrel
