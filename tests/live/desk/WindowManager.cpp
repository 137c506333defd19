#include "tests/live/desk/WindowManager.h"

#include <fmt/format.h>
#include <map>
#include <stdexcept>
#include <utility>

namespace vantrel::live {

namespace {

std::vector<std::string> commandFor(const std::string& name) {
    static const std::map<std::string, std::vector<std::string>> commands{
        {"openbox", {"openbox", "--sm-disable"}},
        {"xfwm4", {"xfwm4", "--compositor=off"}},
        {"metacity", {"metacity", "--sm-disable", "--no-composite"}},
        {"marco", {"marco", "--sm-disable", "--no-composite"}},
        {"kwin_x11", {"kwin_x11", "--no-kactivities"}},
    };
    const auto known = commands.find(name);
    return known == commands.end() ? std::vector{name} : known->second;
}

// The property outlives its window manager, hence the second look: the child names itself.
bool isManaged(DeskConnection& connection) {
    const auto child = connection.values(connection.root(), "_NET_SUPPORTING_WM_CHECK");
    return !child.empty() && connection.values(child[0], "_NET_SUPPORTING_WM_CHECK") == child &&
           connection.atom("_NET_CLIENT_LIST") != XCB_NONE &&
           !connection.values(connection.root(), "_NET_SUPPORTED").empty();
}

} // namespace

WindowManager::WindowManager(const std::string& name, const TemporaryHome& home,
                             std::vector<std::string> environment, DeskConnection& connection)
    : m_process({.command = commandFor(name),
                 .environment = std::move(environment),
                 .workingDirectory = home.path(),
                 .output = home.logFile(name),
                 .passedDescriptor = std::nullopt}) {
    const bool decided =
        connection.waitUntil([&] { return isManaged(connection) || !m_process.isRunning(); });
    if (!decided || !m_process.isRunning()) {
        throw std::runtime_error(fmt::format("{} does not manage the screen: {}", name, home.logEnd(name)));
    }
}

} // namespace vantrel::live
