// The controller on a simulated desk with a disk and settings of its own: what a controller test tells its
// story with.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "tests/simulated/MemoryFileSystem.h"
#include "tests/simulated/SimulatedCalendar.h"
#include "tests/simulated/SimulatedDefaults.h"
#include "tests/simulated/SimulatedDesk.h"
#include "tests/simulated/SimulatedFocus.h"
#include "tests/simulated/SimulatedHotKeys.h"
#include "tests/simulated/SimulatedLicense.h"
#include "tests/simulated/SimulatedPictures.h"
#include "tests/simulated/SimulatedSystemEvents.h"
#include "tests/simulated/SimulatedWorkspace.h"
#include "tests/simulated/SimulatedZone.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantrel::simulated {

class Story {
public:
    explicit Story(const std::string& setup = "laptop", std::uint64_t seed = 0);
    // The controller goes first; what it left in the background ends without it.
    ~Story();

    SimulatedTime time;
    MemoryFileSystem files;
    SimulatedDefaults defaults;
    SimulatedDesk desk;
    SimulatedWorkspace workspace;
    SimulatedSystemEvents system;
    SimulatedHotKeys hotKeys;
    SimulatedZone zone;
    SimulatedCalendar calendar{time};
    SimulatedFocus focus;
    SimulatedPictures pictures;
    SimulatedLicense license;
    AppLog log;
    FileIncidents incidents{[this](const std::string& message) { log.write(message); }};
    std::unique_ptr<AppController> controller;
    // What the controller gets instead of the simulated desk's own ports.
    Desk* deskPort = nullptr;
    DisplayServices* displayPort = nullptr;

    // A browser with two windows, a terminal and a mail program, spread over the displays.
    void openPrograms();
    WindowID browserLeft{};
    WindowID browserRight{};
    WindowID terminal{};
    WindowID mail{};

    // A new controller on the same disk, as after a restart of the program, without and with its engine.
    void construct();
    void start();
    // Long enough for a desk that stands still to be learned.
    void learn();
    // Where the user leaves a window.
    void move(WindowID window, const Rect& frame) { desk.window(window).frame = frame; }
    void minimizeAll(bool isMinimized = true);
    // The disk is full until files.stopFailing().
    void fillDisk();
    // The user leaves every window elsewhere, small, the first at `x`.
    void scatter(double x = 15);
    [[nodiscard]] Rect frame(WindowID window) { return desk.window(window).frame; }
    // Changes the displays and lets everything that follows come to rest.
    void connect(const std::string& setup, const Burst& burst = {});

    void runFor(double seconds) { time.runFor(seconds); }
    [[nodiscard]] const PublishedState& published() const { return controller->published(); }

    [[nodiscard]] LayoutStore store();
    [[nodiscard]] std::optional<Layout> storedLayout();
    [[nodiscard]] std::map<WindowID, Rect> frames();
    // Windows, front to back.
    [[nodiscard]] std::vector<WindowID> stack();
    // None of that title: an empty frame.
    [[nodiscard]] Rect frameOf(const std::string& title);

    // The messages of the log, without their times.
    [[nodiscard]] std::vector<std::string> messages();
    // How many messages begin like this.
    [[nodiscard]] std::size_t logged(const std::string& beginning);
};

} // namespace vantrel::simulated
