#include "tests/Vantrel/controller/Story.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <iterator>
#include <sstream>

namespace vantrel::simulated {

namespace {

constexpr const char* folder = "/support/Vantrel";

} // namespace

Story::Story(const std::string& setup, std::uint64_t seed)
    : time(seed), defaults(time), desk(time, DeskSetup::named(setup)), workspace(time, desk),
      log(folder, files, time) {
    desk.requestSeconds = 0.0008;
    files.onCall = [this](const std::filesystem::path& file) {
        if (file != log.file()) {
            time.noteWait(file.string());
        }
    };
}

Story::~Story() {
    controller.reset();
    time.endJobs();
    EXPECT_THAT(time.mainThreadWaits(), testing::IsEmpty());
}

void Story::openPrograms() {
    const Point last = desk.displays().back().frame.origin;
    const auto browser = desk.launch("org.example.browser", "Browser");
    browserLeft = desk.open(browser, "News", {{40, 60}, {700, 500}});
    browserRight = desk.open(browser, "Tickets", {{last.x + 300, last.y + 100}, {800, 600}});
    terminal = desk.open(desk.launch("org.example.terminal", "Terminal"), "~",
                         {{last.x + 500, last.y + 250}, {640, 400}});
    mail = desk.open(desk.launch("org.example.mail", "Mail"), "Inbox", {{200, 120}, {900, 650}});
}

void Story::construct() {
    controller.reset();
    auto created = AppController::create(
        {.desk = deskPort != nullptr ? *deskPort : desk.port(),
         .displays = displayPort != nullptr ? *displayPort : desk.displayServices(),
         .workspace = workspace,
         .systemEvents = system,
         .defaults = defaults,
         .clock = time,
         .mainQueue = time,
         .background = time,
         .localZone = zone,
         .calendar = calendar,
         .focus = focus,
         .pictures = pictures,
         .hotKeys = hotKeys,
         .license = license},
        {files, &incidents}, log,
        {.supportDirectory = folder, .ownBundleID = "org.example.vantrel", .version = "1.2.3"});
    controller = std::move(created.value());
}

void Story::start() {
    construct();
    controller->watchForPermission();
    controller->startEngine();
}

void Story::learn() {
    runFor(70);
}

void Story::scatter(double x) {
    for (const auto& [window, frame] : frames()) {
        move(window, {{x, 400 + x}, {400, 300}});
        x += 10;
    }
}

void Story::minimizeAll(bool isMinimized) {
    for (const auto& window : desk.windows()) {
        window->states.isMinimized = isMinimized;
    }
}

void Story::fillDisk() {
    files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
}

void Story::connect(const std::string& setup, const Burst& burst) {
    desk.change(DeskSetup::named(setup), burst);
    runFor(14);
}

LayoutStore Story::store() {
    return LayoutStore::open(folder, files).value();
}

std::optional<Layout> Story::storedLayout() {
    LayoutStore layouts = store();
    const std::string configID = published().configID;
    return layouts.layout(configID, layouts.activeLayoutName(configID));
}

std::map<WindowID, Rect> Story::frames() {
    std::map<WindowID, Rect> result;
    for (const auto& window : desk.windows()) {
        result[window->id] = window->frame;
    }
    return result;
}

std::vector<WindowID> Story::stack() {
    std::vector<WindowID> result;
    std::ranges::transform(desk.windows(), std::back_inserter(result), &SimulatedWindow::id);
    return result;
}

Rect Story::frameOf(const std::string& title) {
    const auto found = std::ranges::find(desk.windows(), title, &SimulatedWindow::title);
    return found == desk.windows().end() ? Rect{} : (*found)->frame;
}

std::vector<std::string> Story::messages() {
    std::vector<std::string> result;
    std::istringstream lines(files.content(log.file()).value_or(""));
    for (std::string line; std::getline(lines, line);) {
        result.push_back(line.substr(line.find("] ") + 2));
    }
    return result;
}

std::size_t Story::logged(const std::string& beginning) {
    return static_cast<std::size_t>(std::ranges::count_if(
        messages(), [&](const std::string& message) { return message.starts_with(beginning); }));
}

} // namespace vantrel::simulated
