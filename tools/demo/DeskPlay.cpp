#include "tools/demo/DeskPlay.h"

#include "tools/demo/Backdrop.h"
#include "tools/demo/DemoWindows.h"
#include "tools/desk/Picture.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fmt/format.h>

namespace vantrel::tools {

namespace {

using SteadyClock = std::chrono::steady_clock;

// When to check what the window manager did on its own after plugging back.
constexpr double windowManagerSeconds = 0.3;

template <typename... Arguments>
void say(fmt::format_string<Arguments...> text, Arguments&&... arguments) {
    fmt::print("{}\n", fmt::format(text, std::forward<Arguments>(arguments)...));
    std::fflush(stdout);
}

double secondsSince(SteadyClock::time_point start) {
    return std::chrono::duration<double>(SteadyClock::now() - start).count();
}

class DeskPlay {
public:
    explicit DeskPlay(const PlayOptions& options)
        : m_options(options), m_desk({leftMonitor, rightMonitor}, options.windowManager) {}

    bool play() {
        say("1  A private desk: X server {} with two monitors side by side,\n   "
            "\"Desk 24\" ({}x{}) and \"Side 27\" ({}x{}), {}, and its own home.",
            m_desk.display(), leftMonitor.width, leftMonitor.height, rightMonitor.width, rightMonitor.height,
            m_options.windowManager);
        paintBackdrop(m_desk);
        openWindows();
        RunningVantrel vantrel(m_desk, m_options.programs);
        say("3  vantrel runs and knows this desk as \"{}\".\n   vantrelctl save: {}", vantrel.deskName(),
            vantrel.save());
        takePicture("1-before.png");
        unplug(vantrel);
        plugBack(vantrel);
        return judge();
    }

private:
    void openWindows() {
        m_actors = openDemo(m_desk);
        for (DemoActor& actor : m_actors) {
            actor.story.before = frameOf(actor).value_or(Rect{});
            actor.story.stateBefore = stateOf(m_desk.connection(), actor.client);
        }
        const auto onRight = std::ranges::count_if(
            m_actors, [](const DemoActor& actor) { return actor.story.before.minX() >= rightMonitor.x; });
        say("2  {} windows of real programs are open and arranged, {} of them on the right monitor: one is\n"
            "   minimised, and three are on the second virtual desktop, of which one is maximised and one "
            "full\n"
            "   screen.",
            m_actors.size(), onRight);
    }

    void unplug(RunningVantrel& vantrel) {
        m_desk.monitors().unplug(1);
        paintBackdrop(m_desk);
        const std::string settled = vantrel.awaitLogged("display settled:", generousSeconds);
        m_desk.awaitStill();
        takeFrames(&WindowStory::unplugged);
        const auto moved = std::ranges::count_if(m_actors, [](const DemoActor& actor) {
            return !actor.story.unplugged ||
                   DemoTable::distance(actor.story.before, *actor.story.unplugged) > DemoTable::tolerance;
        });
        say("4  The right monitor is unplugged: {} moved {} windows onto the left one.\n   vantrel: {}",
            m_options.windowManager, moved, settled);
        takePicture("2-unplugged.png");
    }

    void plugBack(RunningVantrel& vantrel) {
        const auto start = SteadyClock::now();
        m_desk.monitors().plug(1, rightMonitor);
        say("5  The right monitor is plugged back.");
        // Well within the time that vantrel waits.
        [[maybe_unused]] const bool isEarly =
            m_desk.connection().waitUntil([&] { return secondsSince(start) >= windowManagerSeconds; });
        takeFrames(&WindowStory::after);
        say("   {:.1f} s later, before vantrel moves anything: {} of {} windows are back in place\n   "
            "through "
            "the window manager alone.",
            secondsSince(start), countBack(), m_actors.size());
        const std::string report = vantrel.awaitLogged("restore report:", generousSeconds);
        if (report.empty()) {
            say("   vantrel reports no restore. Its log:\n{}", vantrel.log());
        } else {
            say("   {:.2f} s after plugging, of which 0.5 s for the displays to become quiet, vantrel is "
                "done:\n"
                "   vantrel: {}",
                secondsSince(start), report);
        }
        paintBackdrop(m_desk);
        m_desk.awaitStill();
        takeFrames(&WindowStory::after);
        takePicture("3-after.png");
    }

    bool judge() {
        std::vector<WindowStory> stories;
        for (const DemoActor& actor : m_actors) {
            stories.push_back(actor.story);
        }
        say("6  Every window as the X server reports it: x,y width x height, and differences, in "
            "points:\n\n{}",
            DemoTable::text(stories));
        say("   Screenshots: 1-before.png, 2-unplugged.png and 3-after.png in {}",
            m_options.pictures.string());
        say("{} of {} windows are back.", countBack(), m_actors.size());
        return countBack() == std::ssize(m_actors);
    }

    [[nodiscard]] std::ptrdiff_t countBack() const {
        return std::ranges::count_if(m_actors, DemoTable::isBack, &DemoActor::story);
    }

    void takeFrames(std::optional<Rect> WindowStory::* moment) {
        for (DemoActor& actor : m_actors) {
            actor.story.*moment = frameOf(actor);
            actor.story.stateAfter = stateOf(m_desk.connection(), actor.client);
        }
    }

    [[nodiscard]] std::optional<Rect> frameOf(const DemoActor& actor) {
        const auto window = seenWindow(m_desk.connection(), actor.client);
        return window ? std::optional(window->frame) : std::nullopt;
    }

    void takePicture(const char* name) { Picture::take(m_desk.connection()).save(m_options.pictures / name); }

    const PlayOptions& m_options;
    PrivateDesk m_desk;
    std::vector<DemoActor> m_actors;
};

} // namespace

bool playDesk(const PlayOptions& options) {
    return DeskPlay(options).play();
}

} // namespace vantrel::tools
