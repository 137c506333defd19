#include "benchmarks/desk/ScriptedPeers.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <vector>

namespace vantrel::bench {

namespace {

// Spawned without copying this process, as the copying would count as the tool's time.
void run(std::vector<std::string> command, const std::string& display) {
    std::vector<std::string> environment{"DISPLAY=" + display, "PATH=/usr/local/bin:/usr/bin:/bin"};
    const auto pointers = [](std::vector<std::string>& texts) {
        std::vector<char*> result;
        result.reserve(texts.size() + 1);
        for (auto& text : texts) {
            result.push_back(text.data());
        }
        result.push_back(nullptr);
        return result;
    };
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    const int error = posix_spawnp(&pid, command.front().c_str(), &actions, nullptr, pointers(command).data(),
                                   pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (error != 0 || waitpid(pid, &status, 0) != pid || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw std::runtime_error(fmt::format("{} failed.", command.front()));
    }
}

} // namespace

void ScriptedPeers::wmctrlLoop(const Arrangement& arrangement) const {
    for (const auto& placement : arrangement) {
        run({"wmctrl", "-i", "-r", fmt::format("{:#x}", placement.window), "-e",
             fmt::format("0,{:.0f},{:.0f},{},{}", placement.frame.minX(), placement.frame.minY(),
                         placement.clientWidth, placement.clientHeight)},
            m_display);
    }
}

void ScriptedPeers::xdotoolChain(const Arrangement& arrangement, Waiting waiting) const {
    std::vector<std::string> command{"xdotool"};
    const auto add = [&](const char* verb, xcb_window_t window, const std::string& first,
                         const std::string& second) {
        command.emplace_back(verb);
        if (waiting == Waiting::untilSeen) {
            command.emplace_back("--sync");
        }
        command.insert(command.end(), {std::to_string(window), first, second});
    };
    for (const auto& placement : arrangement) {
        add("windowmove", placement.window, fmt::format("{:.0f}", placement.frame.minX()),
            fmt::format("{:.0f}", placement.frame.minY()));
        add("windowsize", placement.window, std::to_string(placement.clientWidth),
            std::to_string(placement.clientHeight));
    }
    run(std::move(command), m_display);
}

} // namespace vantrel::bench
