#include "tools/demo/RunningVantrel.h"

#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <utility>

namespace vantrel::tools {

RunningVantrel::RunningVantrel(PrivateDesk& desk, Programs programs)
    : m_desk(desk), m_programs(std::move(programs)) {
    ChildProcess& process = m_desk.start({m_programs.vantrel.string()});
    std::string answer;
    const bool answered = waitUntil([&] {
        const auto status = m_desk.run({m_programs.vantrelctl.string(), "status", "--json"});
        answer = status.output;
        return status.code == 0 || !process.isRunning();
    });
    const auto status = nlohmann::json::parse(answer, nullptr, false);
    if (!answered || !process.isRunning() || !status.is_object()) {
        throw std::runtime_error(fmt::format("vantrel does not respond: {}{}", answer,
                                             m_desk.home().logEnd(m_programs.vantrel.string())));
    }
    m_logFile = m_desk.home().stateFolder() / "vantrel" / "app.log";
    m_deskName = status.value("configName", "");
}

std::string RunningVantrel::save() {
    std::string words = control("save");
    m_logSeen = log().size();
    return words;
}

std::string RunningVantrel::awaitLogged(const std::string& words, double seconds) {
    std::string line;
    const bool came = waitUntil(
        [&] {
            const std::string text = log();
            const std::size_t found = text.find(words, m_logSeen);
            const std::size_t end = text.find('\n', found);
            if (found == std::string::npos || end == std::string::npos) {
                return false;
            }
            line = text.substr(found, end - found);
            m_logSeen = end;
            return true;
        },
        seconds);
    return came ? line : "";
}

std::string RunningVantrel::log() const {
    std::ifstream file(m_logFile, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string RunningVantrel::control(const std::string& command) {
    auto finished = m_desk.run({m_programs.vantrelctl.string(), command});
    if (finished.code != 0) {
        throw std::runtime_error(fmt::format("vantrelctl {} failed: {}", command, finished.output));
    }
    while (finished.output.ends_with('\n')) {
        finished.output.pop_back();
    }
    return finished.output;
}

} // namespace vantrel::tools
