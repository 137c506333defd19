// A private desk on which vantrel is used: started, told what to do, and asked.
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
    // Fails the test when a vantrel has crashed, also at its end, and shows vantrel's log when the test has
    // failed: the home goes with the desk.
    ~VantrelDesk();
    VantrelDesk(const VantrelDesk&) = delete;
    VantrelDesk& operator=(const VantrelDesk&) = delete;

    // Returns when it answers on the bus. `changes` are those of its environment (ProgramRun).
    [[nodiscard]] ProgramRun startVantrel(std::vector<std::string> changes = {},
                                          const char* program = VANTREL_PROGRAM) const;

    // vantrelctl with these arguments, run to its end.
    [[nodiscard]] Ended control(const std::vector<std::string>& arguments) const;
    // What it prints. The test fails unless it ends well, or with a reason.
    std::string done(const std::vector<std::string>& arguments) const;
    std::string refused(const std::vector<std::string>& arguments) const;
    [[nodiscard]] nlohmann::json asked(std::vector<std::string> arguments) const;

    [[nodiscard]] std::filesystem::path vantrelFolder() const { return home().dataFolder() / "Vantrel"; }

    // What vantrel has logged, and how many lines of it hold `words`.
    [[nodiscard]] std::string log() const;
    [[nodiscard]] std::size_t logged(const std::string& words) const;
};

// What is told under each window manager.
class UnderWindowManager : public ::testing::TestWithParam<const char*> {
protected:
    bool eventually(const std::function<bool()>& condition) { return desk.connection().waitUntil(condition); }

    VantrelDesk desk{GetParam()};
};

inline auto windowManagers() {
    return ::testing::Values("openbox", "xfwm4");
}

inline std::string windowManagerName(const ::testing::TestParamInfo<const char*>& info) {
    return info.param;
}

} // namespace vantrel::live
