// Windows with equal titles, in every state and on two virtual desktops, live through dockings while the user
// works, vantrel is restarted, the session is locked and the window manager is late or away. The law: a
// window that lives through a cycle stands where it stood on that desk, in the same state and on the same
// desktop.
#include "tests/Vantrel/controller/Story.h"

#include <cstdlib>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace vantrel::simulated {
namespace {

struct Place {
    Rect frame;
    PlaceStates states;
    std::int64_t desktop = 0;

    bool operator==(const Place&) const = default;

    friend void PrintTo(const Place& place, std::ostream* out) {
        const auto& [origin, size] = place.frame;
        *out << fmt::format("({}, {}) {}x{} desktop {}{}{}{}{}{}{}", origin.x, origin.y, size.width,
                            size.height, place.desktop, place.states.isMinimized ? " minimised" : "",
                            place.states.isFullscreen ? " full screen" : "",
                            place.states.isMaximizedHorizontally ? " wide" : "",
                            place.states.isMaximizedVertically ? " high" : "",
                            place.states.isOnAllDesktops ? " everywhere" : "",
                            place.states.isAbove ? " above" : "");
    }
};

class WindowStory {
public:
    explicit WindowStory(std::uint64_t seed)
        : m_story(seed % 2 == 0 ? "laptop-and-monitor" : "laptop-and-twins", seed), m_random(seed),
          m_docked(m_story.desk.displays().size() > 2
                       ? std::vector<std::string>{"laptop-and-twins", "laptop-and-twins-on-other-ports"}
                       : std::vector<std::string>{"laptop-and-monitor"}) {}

    void tell() {
        for (const std::string name : {"browser", "editor", "terminal"}) {
            m_programs.push_back(m_story.desk.launch("org.example." + name, name));
        }
        for (std::size_t i = 0; i < 9; ++i) {
            open();
        }
        // Without a window to be seen nothing is learned.
        m_anchor = m_story.desk.open(m_programs[0], "anchor", somewhere());
        m_story.desk.window(m_anchor).states.isOnAllDesktops = true;
        m_story.start();
        m_story.learn();
        for (int cycle = 0; cycle < 3 && !testing::Test::HasFailure(); ++cycle) {
            tellCycle();
        }
    }

    [[nodiscard]] std::string transcript() {
        return fmt::format("{}\n--- log\n{}", fmt::join(m_told, "\n"), fmt::join(m_story.messages(), "\n"));
    }

private:
    [[nodiscard]] std::size_t below(std::size_t bound) { return m_random() % bound; }
    [[nodiscard]] bool happens(std::size_t percent) { return below(100) < percent; }
    [[nodiscard]] double seconds(double most) { return most * static_cast<double>(below(1000)) / 1000; }
    [[nodiscard]] std::string title() { return fmt::format("Window {}", below(3)); }

    void say(const std::string& what) {
        m_told.push_back(fmt::format("{:.1f} s: {}", m_story.time.monotonicSeconds(), what));
    }

    [[nodiscard]] Rect somewhere() {
        const auto& displays = m_story.desk.displays();
        const Rect area = displays[below(displays.size())].usableFrame();
        return {
            {area.minX() + static_cast<double>(below(300)), area.minY() + static_cast<double>(below(200))},
            {200 + static_cast<double>(below(400)), 150 + static_cast<double>(below(300))}};
    }

    [[nodiscard]] PlaceStates someStates() {
        switch (below(8)) {
        case 0:
            return {.isMinimized = true};
        case 1:
            return {.isFullscreen = true};
        case 2:
            return {.isMaximizedHorizontally = true, .isMaximizedVertically = true};
        case 3:
            return {.isMaximizedVertically = true};
        case 4:
            return {.isOnAllDesktops = true};
        default:
            return {};
        }
    }

    void open() {
        const WindowID window = m_story.desk.open(m_programs[below(m_programs.size())], title(), somewhere());
        m_story.desk.window(window).desktop = static_cast<std::int64_t>(below(2));
        m_story.desk.setStates(window, someStates());
    }

    [[nodiscard]] std::map<WindowID, Place> places() {
        std::map<WindowID, Place> result;
        for (const auto& window : m_story.desk.windows()) {
            result[window->id] = {window->frame, window->states,
                                  window->states.isOnAllDesktops ? 0 : window->desktop};
        }
        return result;
    }

    void restart() {
        say("vantrel restarts");
        m_story.controller.reset();
        m_story.runFor(seconds(20));
        m_story.start();
        m_story.runFor(seconds(20));
    }

    void userWorks() {
        m_story.desk.currentDesktop = static_cast<std::int64_t>(below(2));
        for (const WindowID window : m_story.stack()) {
            if (window == m_anchor) {
                continue;
            }
            switch (below(8)) {
            case 0:
                m_story.desk.close(window);
                continue;
            case 1:
                m_story.desk.drag(window, somewhere());
                break;
            case 2:
                m_story.desk.bringToFront(window);
                break;
            case 3:
                m_story.desk.setStates(window, someStates());
                break;
            case 4:
                m_story.desk.window(window).desktop = static_cast<std::int64_t>(below(2));
                break;
            default:
                break;
            }
            m_story.desk.window(window).title = title();
        }
        open();
    }

    // Displays change and everything comes to rest, whatever stands in the way.
    void connect(const std::string& setup) {
        const std::size_t hindrance = below(4);
        say(fmt::format("-> {}{}", setup,
                        std::vector<std::string>{"", ", locked", ", without window manager",
                                                 ", with a late window manager"}[hindrance]));
        m_story.desk.habits.meddlingDelays.clear();
        switch (hindrance) {
        case 1:
            m_story.system.setLocked(true);
            m_story.connect(setup);
            m_story.system.setLocked(false);
            break;
        case 2:
            m_story.desk.setWindowManagerRunning(false);
            m_story.connect(setup);
            m_story.desk.setWindowManagerRunning(true);
            break;
        case 3:
            m_story.desk.habits.meddlingDelays = {0.3 + seconds(2), 2 + seconds(4)};
            m_story.connect(setup);
            break;
        default:
            m_story.connect(setup);
        }
        m_story.runFor(40);
    }

    void tellCycle() {
        const auto learned = places();
        connect("laptop");
        say("the user works");
        userWorks();
        if (happens(50)) {
            m_story.learn();
        }
        if (happens(40)) {
            restart();
        }
        connect(m_docked[below(m_docked.size())]);
        for (const auto& [window, place] : places()) {
            const auto was = learned.find(window);
            if (was != learned.end()) {
                EXPECT_EQ(place, was->second)
                    << std::to_underlying(window) << " " << m_story.desk.window(window).title;
            }
        }
        if (happens(30)) {
            restart();
        }
        m_story.learn();
    }

    Story m_story;
    std::mt19937_64 m_random;
    std::vector<std::string> m_docked;
    std::vector<std::int32_t> m_programs;
    WindowID m_anchor{};
    std::vector<std::string> m_told;
};

// VANTREL_SEED=17 tells the story of that seed alone; VANTREL_SEEDS=10000 tells as many.
TEST(EveryWindowStories, AWindowThatLivesThroughACycleComesBackAsItWas) {
    const auto number = [](const char* name, std::uint64_t otherwise) {
        const char* const text = std::getenv(name);
        return text != nullptr ? std::stoull(text) : otherwise;
    };
    const std::uint64_t first = number("VANTREL_SEED", 0);
    const std::uint64_t end = number("VANTREL_SEED", number("VANTREL_SEEDS", 40) - 1) + 1;
    for (std::uint64_t seed = first; seed < end; ++seed) {
        SCOPED_TRACE(seed);
        WindowStory story(seed);
        story.tell();
        ASSERT_FALSE(HasFailure()) << story.transcript();
    }
}

} // namespace
} // namespace vantrel::simulated
