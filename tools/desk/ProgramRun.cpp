#include "tools/desk/ProgramRun.h"

#include "tools/desk/PrivateDesk.h"

#include <atomic>
#include <csignal>
#include <fmt/format.h>
#include <fstream>
#include <iterator>

namespace vantrel::tools {

namespace {

std::filesystem::path freshOutput(const PrivateDesk& desk, const std::string& program) {
    static std::atomic<int> count = 0;
    return desk.home().logFile(fmt::format("{}-{}", program, ++count));
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

ProgramRun::ProgramRun(const PrivateDesk& desk, const std::vector<std::string>& command,
                       const std::vector<std::string>& changes)
    : m_output(freshOutput(desk, command.at(0))),
      m_process(ChildStart{.command = command,
                           .environment = changed(desk.environment(), changes),
                           .workingDirectory = desk.home().path(),
                           .output = m_output,
                           .passedDescriptor = std::nullopt}) {}

std::string ProgramRun::output() const {
    std::ifstream stream(m_output);
    return {std::istreambuf_iterator<char>(stream), {}};
}

Ended ProgramRun::ended() {
    const auto code = m_process.waitForExit(generousSeconds);
    return {code, output()};
}

Ended ProgramRun::endedBy(int signal) {
    kill(m_process.pid(), signal);
    return ended();
}

} // namespace vantrel::tools
