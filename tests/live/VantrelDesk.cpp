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
        fmt::print(stderr, "what vantrel logged:\n{}\n", log());
    }
}

ProgramRun VantrelDesk::startVantrel(std::vector<std::string> changes, const char* program) const {
    // Who uses memory that is free reads nonsense instead of what was there.
    changes.insert(changes.end(), {"MALLOC_PERTURB_=165", "G_SLICE=always-malloc"});
    ProgramRun run(*this, {program}, changes);
    if (!waitUntil([&] { return control({"status"}).code == 0; })) {
        throw std::runtime_error("vantrel does not answer: " + run.output());
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

std::string VantrelDesk::log() const {
    std::ifstream stream(vantrelFolder() / "app.log");
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

} // namespace vantrel::live
