#include "tests/live/ProgramRun.h"

#include <atomic>
#include <fmt/format.h>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <stdexcept>

namespace vantrel::live {

namespace {

std::filesystem::path freshOutput(const PrivateDesk& desk, const std::string& program) {
    static std::atomic<int> count = 0;
    return desk.home().path() /
           fmt::format("{}-{}.out", std::filesystem::path(program).filename().string(), ++count);
}

std::string contents(const std::filesystem::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> changed(std::vector<std::string> environment,
                                 const std::vector<std::string>& changes) {
    for (const auto& change : changes) {
        const auto name = change.substr(0, change.find('='));
        std::erase_if(environment, [&](const std::string& each) { return each.starts_with(name + "="); });
        if (change != name) {
            environment.push_back(change);
        }
    }
    return environment;
}

} // namespace

ProgramRun::ProgramRun(const PrivateDesk& desk, std::vector<std::string> command,
                       const std::vector<std::string>& changes)
    : m_output(freshOutput(desk, command.at(0))),
      m_log(command.at(0) == VANTREL_PROGRAM ? desk.home().dataFolder() / "Vantrel" / "app.log" : ""),
      m_process(ChildStart{.command = std::move(command),
                           .environment = changed(desk.environment(), changes),
                           .workingDirectory = desk.home().path(),
                           .output = m_output,
                           .passedDescriptor = std::nullopt}) {}

ProgramRun::~ProgramRun() {
    if (!m_log.empty() && testing::Test::HasFailure()) {
        fmt::print(stderr, "what vantrel logged:\n{}\n", contents(m_log));
    }
}

std::string ProgramRun::output() const {
    return contents(m_output);
}

Ended ProgramRun::ended() {
    const auto code = m_process.waitForExit(generousSeconds);
    return {code, output()};
}

std::vector<std::string> vantrelCommand(const std::vector<std::string>& arguments) {
    std::vector<std::string> command{VANTREL_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

Ended vantrelctl(const PrivateDesk& desk, const std::vector<std::string>& arguments) {
    std::vector<std::string> command{VANTRELCTL_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return ProgramRun(desk, command).ended();
}

ProgramRun startVantrel(const PrivateDesk& desk) {
    ProgramRun run(desk, vantrelCommand());
    if (!waitUntil([&] { return vantrelctl(desk, {"status"}).code == 0; })) {
        throw std::runtime_error("vantrel does not answer: " + run.output());
    }
    return run;
}

} // namespace vantrel::live
