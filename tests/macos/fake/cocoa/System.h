// The Mac that the fake Foundation, AppKit and EventKit show: what a test sets up, what happened to it, and
// what makes it move.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::fake::cocoa {

struct Area {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

struct Screen {
    // The entry "NSScreenNumber"; none: it is missing.
    std::optional<unsigned> number{};
    std::string name;
    Area frame{};
    Area visibleFrame{};
    // The entry is there, but it is a text.
    bool isNumberText = false;
    std::optional<std::string> picture{};
    bool acceptsPictures = true;
};

struct Application {
    int pid = 0;
    std::optional<std::string> bundleID{};
    std::optional<std::string> name{};
    // As NSApplicationActivationPolicy.
    long policy = 0;
    bool isHidden = false;
    bool isTerminated = false;
    // Answers to hide and unhide with yes.
    bool obeys = true;
};

struct InstalledApplication {
    std::string path;
    // As the Finder shows it.
    std::string name;
    bool starts = true;
};

struct Event {
    std::optional<std::string> identifier;
    std::optional<std::string> title{};
    std::optional<std::string> location{};
    std::optional<std::string> notes{};
    std::optional<std::string> url{};
    // Seconds since 1970; none: the entry has no date.
    std::optional<double> start{};
    std::optional<double> end{};
    bool isAllDay = false;
    // As EKEventStatus.
    long status = 0;
};

struct System {
    std::vector<Screen> screens;
    std::vector<std::shared_ptr<Application>> applications;
    // By bundle identifier.
    std::map<std::string, InstalledApplication> installed;
    // What the program did, in order: "launch /Applications/A.app activates=0", "hide 12".
    std::vector<std::string> calls;

    // As EKAuthorizationStatus, and what becomes of it when the user is asked.
    long calendarAccess = 0;
    long calendarAccessWhenAsked = 3;
    std::vector<Event> events;

    // As POSIX describes it.
    std::string timeZone = "UTC0";
    std::string supportFolder = "/Users/ada/Library/Application Support";
    // Absent: the folder cannot be had.
    bool hasSupportFolder = true;
    std::string bundleID = "org.vantrel.Vantrel";
    std::string frameworksPath = "/Applications/Vantrel.app/Contents/Frameworks";
    bool isFinishedLaunching = false;
    // The bundle's build is a number instead of a text.
    bool isVersionNumber = false;
    std::optional<std::string> hardwareModel = "Mac14,2";
    // As SMAppServiceStatus, and what becomes of it when the program asks.
    long loginItem = 0;
    bool takesLoginItems = true;
    bool approvesLoginItems = true;
    // Of the updater.
    bool checksForUpdates = true;
};

// As after reset() until a test changes it.
[[nodiscard]] System& system();
// A new machine; lets go of everything that lives as long as a program does.
void reset();

// What the main thread does next: posted blocks and due timers.
void runMainQueue();
// The same for the next seconds of virtual time.
void advance(double seconds);
[[nodiscard]] std::size_t scheduledTimers();

// What the runtime does when nobody catches an NSException, as far as the program's own handler.
void throwUncaught(const std::string& name, const std::optional<std::string>& reason,
                   const std::vector<std::string>& callStack);

// Posts it in the centre of the workspace, of the program itself or of all programs.
enum class Center { workspace, program, everybody };
void post(Center center, const std::string& name, const std::shared_ptr<Application>& application = nullptr);
[[nodiscard]] std::size_t observers();

} // namespace vantrel::fake::cocoa
