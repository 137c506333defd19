#include "tests/live/VantrelDesk.h"

#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace vantrel::live {

VantrelDesk::~VantrelDesk() {
    std::error_code none;
    for (const auto& report : std::filesystem::directory_iterator(vantrelFolder() / "crashes", none)) {
        std::ifstream stream(report.path());
        ADD_FAILURE() << "vantrel crashed: " << std::string(std::istreambuf_iterator<char>(stream), {});
    }
    if (::testing::Test::HasFailure()) {
        fmt::print(stderr, "vantrel's log:\n{}\n", log());
    }
}

ProgramRun VantrelDesk::startVantrel(std::vector<std::string> changes, const char* program) const {
    // Freed memory is overwritten, so that code that still uses it reads nonsense.
    changes.insert(changes.end(), {"MALLOC_PERTURB_=165", "G_SLICE=always-malloc"});
    ProgramRun run(*this, {program}, changes);
    if (!waitUntil([&] { return control({"status"}).code == 0; })) {
        throw std::runtime_error("vantrel does not reply: " + run.output());
    }
    return run;
}

Ended VantrelDesk::control(const std::vector<std::string>& arguments) const {
    std::vector<std::string> command{VANTRELCTL_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return run(command);
}

std::string VantrelDesk::done(const std::vector<std::string>& arguments) const {
    const auto ended = control(arguments);
    EXPECT_EQ(ended.code, 0) << ::testing::PrintToString(arguments) << " " << ended.output;
    return ended.output;
}

std::string VantrelDesk::refused(const std::vector<std::string>& arguments) const {
    const auto ended = control(arguments);
    EXPECT_EQ(ended.code, 1) << ::testing::PrintToString(arguments) << " " << ended.output;
    return ended.output;
}

nlohmann::json VantrelDesk::asked(std::vector<std::string> arguments) const {
    arguments.emplace_back("--json");
    return nlohmann::json::parse(done(arguments));
}

std::string VantrelDesk::callOnBus(const std::string& destination, const std::string& path,
                                   const std::string& method,
                                   const std::vector<std::string>& arguments) const {
    std::vector<std::string> command{"gdbus",         "call", "--session", "--dest", destination,
                                     "--object-path", path,   "--method",  method,   "--"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return run(command).output;
}

std::string VantrelDesk::log() const {
    std::ifstream stream(stateFolder() / "app.log");
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::size_t VantrelDesk::logged(const std::string& words) const {
    std::istringstream lines(log());
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line);) {
        count += line.find(words) != std::string::npos ? 1U : 0U;
    }
    return count;
}

bool VantrelDesk::awaitLogged(const std::string& words, std::size_t lines, double seconds) const {
    return waitUntil([&] { return logged(words) >= lines; }, seconds);
}

} // namespace vantrel::live
