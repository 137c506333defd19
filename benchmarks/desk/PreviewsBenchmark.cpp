// What pictures of 30 windows cost while the workbench shows them: the processor time of vantrel and of the X
// server, without pictures and with them, while windows stay as they are and while all of them change.
#include "benchmarks/TextTable.h"
#include "benchmarks/desk/ProcessorTime.h"
#include "tools/desk/PrivateDesk.h"
#include "tools/desk/ProbeClient.h"

#include <chrono>
#include <cstdio>
#include <fmt/format.h>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <unistd.h>
#include <vector>

namespace vantrel::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t windowCount = 30;
constexpr std::chrono::seconds duration{20};
constexpr std::chrono::milliseconds pause{200};

// Of all its threads, in seconds.
double processorTime(pid_t pid) {
    std::ifstream file(fmt::format("/proc/{}/stat", pid));
    std::string text;
    std::getline(file, text);
    // The name, in parentheses, may contain spaces.
    std::istringstream rest(text.substr(text.rfind(')') + 1));
    std::string skipped;
    for (int field = 3; field < 14; ++field) {
        rest >> skipped;
    }
    double user = 0;
    double system = 0;
    rest >> user >> system;
    return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

class Bench {
public:
    Bench() {
        m_desk.home().writeSettings("quietNudgesEnabled = false");
        for (std::size_t i = 0; i < windowCount; ++i) {
            const auto at = static_cast<double>(i);
            m_windows.push_back(m_probe.show({.title = fmt::format("Document {}", i),
                                              .wmClass = fmt::format("Program{}", i % 10),
                                              .area = {{20 + at * 55, 40 + at * 8}, {1000, 700}}}));
        }
        m_vantrel.emplace(m_desk, std::vector<std::string>{VANTREL_PROGRAM});
        if (!tools::waitUntil([&] { return control({"status"}); })) {
            throw std::runtime_error("vantrel does not reply: " + m_vantrel->output());
        }
    }

    void run() {
        measure("nothing is shown, all windows change", true);
        require(control({"workbench", "scenes"}));
        rest();
        measure("shown without pictures, all windows change", true);
        require(control({"settings", "set", "showWindowPreviews", "true"}));
        rest();
        measure("shown with pictures, no window changes", false);
        measure("shown with pictures, all windows change", true);
        fmt::print("{}", m_table.text());
    }

private:
    static void require(bool isDone) {
        if (!isDone) {
            throw std::runtime_error("vantrelctl failed");
        }
    }
    static void rest() { std::this_thread::sleep_for(std::chrono::seconds(4)); }

    [[nodiscard]] bool control(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), VANTRELCTL_PROGRAM);
        return m_desk.run(arguments).code == 0;
    }

    void paint(std::uint32_t colour) {
        xcb_connection_t* const xcb = m_probe.connection().xcb();
        for (const xcb_window_t window : m_windows) {
            xcb_change_window_attributes(xcb, window, XCB_CW_BACK_PIXEL, &colour);
            xcb_clear_area(xcb, 0, window, 0, 0, 0, 0);
        }
        m_probe.connection().finish();
    }

    void measure(const std::string& what, bool changes) {
        const double before = processorTime(m_vantrel->process().pid());
        const double serverBefore = serverProcessorTime(m_desk.display());
        const auto start = Clock::now();
        std::uint32_t colour = 0x406080;
        while (Clock::now() - start < duration) {
            if (changes) {
                paint(colour = colour * 1664525 + 1013904223);
            }
            std::this_thread::sleep_for(pause);
        }
        const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
        const double ours = processorTime(m_vantrel->process().pid()) - before;
        const double servers = serverProcessorTime(m_desk.display()) - serverBefore;
        m_table.add({what, fmt::format("{:.2f} %", ours / seconds * 100),
                     fmt::format("{:.2f} %", servers / seconds * 100)});
    }

    tools::PrivateDesk m_desk{{{0, 0, 1920, 1080}, {1920, 0, 1600, 900}}, "openbox"};
    tools::ProbeClient m_probe{m_desk.display()};
    std::vector<xcb_window_t> m_windows;
    std::optional<tools::ProgramRun> m_vantrel;
    TextTable m_table{{"Pictures of 30 windows, share of a core", "vantrel", "the X server"}};
};

} // namespace
} // namespace vantrel::bench

int main() {
    try {
        vantrel::bench::Bench().run();
    } catch (const std::exception& error) {
        fmt::print(stderr, "vantrel_previews_benchmark: {}\n", error.what());
        return 1;
    }
    return 0;
}
