// The Mac behind the fake Foundation, AppKit and EventKit: its state, a record of what happened, and
// functions that advance it.
#pragma once

#include <cstdint>
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
    // The entry "NSScreenNumber"; none if it is missing.
    std::optional<unsigned> number{};
    std::string name;
    Area frame{};
    Area visibleFrame{};
    // The entry exists but is a string.
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
    // Returns YES from hide and unhide.
    bool obeys = true;
};

struct InstalledApplication {
    std::string path;
    // As shown in the Finder.
    std::string name;
    bool starts = true;
    // None if its file is damaged.
    bool hasIcon = true;
};

struct Event {
    std::optional<std::string> identifier;
    std::optional<std::string> title{};
    std::optional<std::string> location{};
    std::optional<std::string> notes{};
    std::optional<std::string> url{};
    // Seconds since 1970; none if the event has no date.
    std::optional<double> start{};
    std::optional<double> end{};
    bool isAllDay = false;
    // As EKEventStatus.
    long status = 0;
};

// The program's item in the menu bar.
struct MenuBar {
    bool hasItem = false;
    std::string toolTip;
    std::string label;
    std::size_t resolutions = 0;
    bool isTemplate = false;
    // The entries of the menu that was opened last, with their key equivalents: "Restore [1048576 r]".
    std::vector<std::string> opened;
    // The title of the entry that the user chooses.
    std::string chosen;

    bool isRightClickSent = false;
    bool isRightClick = false;
    bool isControlHeld = false;
};

// The notification that is shown, and its buttons.
struct NotificationCenter {
    std::string shown;
    std::vector<std::string> buttons;
};

struct System {
    std::vector<Screen> screens;
    std::vector<std::shared_ptr<Application>> applications;
    // By bundle identifier.
    std::map<std::string, InstalledApplication> installed;
    // By name: the size that each has in a font of one point.
    std::map<std::string, Area> symbols;
    // What the program did, in order, such as "launch /Applications/A.app activates=0", "hide 12".
    std::vector<std::string> calls;

    // As EKAuthorizationStatus: now, and after the user was asked.
    long calendarAccess = 0;
    long calendarAccessWhenAsked = 3;
    std::vector<Event> events;

    // In POSIX format.
    std::string timeZone = "UTC0";
    std::string supportFolder = "/Users/ada/Library/Application Support";
    // If false, the folder cannot be determined.
    bool hasSupportFolder = true;
    std::string bundleID = "org.vantrel.Vantrel";
    std::string frameworksPath = "/Applications/Vantrel.app/Contents/Frameworks";
    // Further strings in the bundle's Info.plist.
    std::map<std::string, std::string> information;
    bool isFinishedLaunching = false;
    // Whether the program is the active one; a menu-bar program rarely is.
    bool isActive = true;
    // The active application, if it is another one.
    std::shared_ptr<Application> frontmost;
    MenuBar menuBar;
    NotificationCenter notifications;
    // The bundle's build is a number instead of a string.
    bool isVersionNumber = false;
    std::optional<std::string> hardwareModel = "Mac14,2";
    // As SMAppServiceStatus, and how requests of the program are handled.
    long loginItem = 0;
    bool acceptsLoginItems = true;
    bool approvesLoginItems = true;
    // The program asked AppKit to let exceptions in event handlers end it.
    bool endsOnAnyException = false;
    // The user's setting.
    bool reducesMotion = false;
    // Of the program's only window.
    unsigned long collectionBehavior = 2;
    // Activities that keep the system from slowing the program down.
    int activities = 0;
    // The updater's setting.
    bool checksForUpdates = true;
};

// In its initial state after reset().
[[nodiscard]] System& system();
// Resets the machine and releases all shared instances.
void reset();

// The native view of the program's only window.
[[nodiscard]] std::uintptr_t view();

// Runs the blocks posted to the main queue.
void runMainQueue();
// Runs posted blocks and due timers for the next seconds of virtual time.
void advance(double seconds);
[[nodiscard]] std::size_t scheduledTimers();

// Calls the program's handler for an uncaught NSException, as the runtime does.
void throwUncaught(const std::string& name, const std::optional<std::string>& reason,
                   const std::vector<std::string>& callStack);

enum class Click : std::uint8_t { left, right, control };
void clickMenuBarItem(Click click);
// The user answers whether notifications may be shown, clicks one, or one of its buttons.
void answerNotificationPermission(bool isGranted);
void clickNotification(const std::string& button);
// The user opens the running program again, in the Finder or the Dock.
void reopen();

// Posts a notification to the workspace's, the program's own or the distributed centre.
enum class Center { workspace, program, distributed };
void post(Center center, const std::string& name, const std::shared_ptr<Application>& application = nullptr);
[[nodiscard]] std::size_t observers();

} // namespace vantrel::fake::cocoa
