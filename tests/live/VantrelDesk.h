// A private desk on which a test starts vantrel and talks to it through vantrelctl.
#pragma once

#include "tools/desk/PrivateDesk.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace vantrel::live {

using namespace tools;

inline constexpr MonitorPlace left{0, 0, 1280, 1024};
inline constexpr MonitorPlace right{1280, 0, 1600, 900};

class VantrelDesk : public PrivateDesk {
public:
    explicit VantrelDesk(const std::string& windowManager,
                         const std::vector<MonitorPlace>& monitors = {left, right})
        : PrivateDesk(monitors, windowManager) {}
    // Fails the test when vantrel crashed, even while ending. Prints vantrel's log when the test has failed,
    // because the home is removed with the desk.
    ~VantrelDesk();
    VantrelDesk(const VantrelDesk&) = delete;
    VantrelDesk& operator=(const VantrelDesk&) = delete;

    // Returns when it replies on the bus. `changes` apply to its environment (see ProgramRun).
    [[nodiscard]] ProgramRun startVantrel(std::vector<std::string> changes = {},
                                          const char* program = VANTREL_PROGRAM) const;

    // Runs vantrelctl with these arguments to its end.
    [[nodiscard]] Ended control(const std::vector<std::string>& arguments) const;
    // What it prints. The test fails unless it exits with 0 (done) or 1 (refused).
    std::string done(const std::vector<std::string>& arguments) const;
    std::string refused(const std::vector<std::string>& arguments) const;
    [[nodiscard]] nlohmann::json asked(std::vector<std::string> arguments) const;

    // What gdbus prints of a call on the session bus; `arguments` as GVariant texts.
    [[nodiscard]] std::string callOnBus(const std::string& destination, const std::string& path,
                                        const std::string& method,
                                        const std::vector<std::string>& arguments) const;

    [[nodiscard]] std::filesystem::path vantrelFolder() const { return home().dataFolder() / "vantrel"; }

    [[nodiscard]] std::filesystem::path stateFolder() const { return home().stateFolder() / "vantrel"; }

    // What vantrel has logged, and how many lines of it contain `words`.
    [[nodiscard]] std::string log() const;
    [[nodiscard]] std::size_t logged(const std::string& words) const;
    // Waits until that many lines contain `words`.
    [[nodiscard]] bool awaitLogged(const std::string& words, std::size_t lines = 1,
                                   double seconds = generousSeconds) const;
};

// Tests that run under each window manager.
class UnderWindowManager : public ::testing::TestWithParam<const char*> {
protected:
    bool eventually(const std::function<bool()>& condition) { return desk.connection().waitUntil(condition); }

    VantrelDesk desk{GetParam()};
};

inline auto windowManagers() {
    return ::testing::Values("openbox", "xfwm4");
}

// For what window managers do differently.
inline auto fourWindowManagers() {
    return ::testing::Values("openbox", "xfwm4", "fluxbox", "kwin");
}

inline std::string windowManagerName(const ::testing::TestParamInfo<const char*>& info) {
    return info.param;
}

} // namespace vantrel::live
