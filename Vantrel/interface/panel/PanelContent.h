// What the panel shows, as a value: rows, texts, their order, and what is enabled.
#pragma once

#include "Vantrel/controller/PublishedState.h"
#include "Vantrel/interface/desk/DeskPicture.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

struct PanelContent {
    // A row that is only there when there is something to say.
    struct Message {
        enum class Kind : std::uint8_t {
            permission,
            session,
            sharedFolder,
            tray,
            license,
            files,
            settings,
            learning,
            missionControl,
            drift,
            sameDesk,
            suggestion,
            calendar,
            switcherTip,
            crashReports,
            update,
        };
        enum class Tone : std::uint8_t { plain, accent, warning };
        enum class Deed : std::uint8_t {
            none,
            checkAgain,
            openPermissionSettings,
            stayClosed,
            purchase,
            enterKey,
            retryFiles,
            openSettingsFile,
            fixMissionControl,
            putBack,
            reapplyScene,
            joinDesks,
            saveAsScene,
            stopSuggesting,
            recordSwitcherShortcut,
            sendCrashReports,
            showUpdate,
        };
        struct Action {
            Deed deed = Deed::none;
            std::string text;

            bool operator==(const Action&) const = default;
        };

        Kind kind = Kind::drift;
        Tone tone = Tone::plain;
        std::string symbol;
        std::string title;
        // Empty when the title says it all.
        std::string detail{};
        std::vector<Action> actions{};
        bool isDismissible = true;

        bool operator==(const Message&) const = default;
    };

    struct Button {
        std::string text;
        // The shortcut, or what it acts on.
        std::string detail;
        bool isEnabled = true;
        // Why it is not enabled.
        std::string reason{};

        bool operator==(const Button&) const = default;
    };

    struct SceneRow {
        std::string id;
        std::string name;
        std::string symbol;
        // "6 windows · 1 app not open".
        std::string detail;
        // Empty without one.
        std::string shortcut;
        // The system has refused the shortcut.
        bool isShortcutRefused = false;
        bool isPinned = false;
        // The scene last applied on this desk.
        bool isCurrent = false;

        bool operator==(const SceneRow&) const = default;
    };

    struct SceneGroup {
        std::string deskName;
        std::vector<SceneRow> scenes;

        bool operator==(const SceneGroup&) const = default;
    };

    struct Layouts {
        std::vector<std::string> names;
        std::string active;
        bool isPinned = false;

        bool operator==(const Layouts&) const = default;
    };

    struct Result {
        std::string text;
        bool isProblem = false;

        bool operator==(const Result&) const = default;
    };

    // What the user should know about this session: "Only X11 programs can be moved".
    struct SessionNote {
        std::string title;
        std::string detail;
        Message::Kind kind = Message::Kind::session;
    };

    // What published state does not say.
    struct Context {
        Date now;
        // What is missing when windows cannot be moved, on this system.
        std::string permissionTitle{};
        std::string permissionDetail{};
        // Granted in the system's settings, which is noticed without asking again.
        bool hasPermissionSettings = false;
        std::vector<SessionNote> sessionNotes{};
        // The panel opens at start, because this desktop shows no tray icons.
        bool opensWithoutTray = false;
        std::size_t crashReports = 0;
        bool offersMissionControlFix = false;
        bool offersPurchase = true;
        // The user has dismissed the tip about the quick switcher.
        bool isSwitcherTipDismissed = false;
        // Dismissed until the program restarts.
        std::set<Message::Kind> dismissed{};
    };

    std::string deskName;
    Phase phase;
    std::string phaseText;
    std::vector<Message> messages;
    DeskPicture drawing;
    Button restore;
    Button save;
    Button stash;
    Button undo;
    // None while nothing is remembered.
    std::optional<Layouts> layouts;
    std::vector<SceneRow> scenes;
    // "3 scenes on other desks"; empty without any.
    std::string otherScenesText;
    std::vector<SceneGroup> otherScenes;
    std::optional<Result> lastResult;
    // A desk has a name once something is remembered for it.
    bool canRename = false;
    bool isOn = true;
    // Nothing is remembered for this desk yet.
    bool isEmpty = false;
    bool isStashed = false;
    bool canSaveScene = true;

    bool operator==(const PanelContent&) const = default;

    [[nodiscard]] static PanelContent of(const PublishedState& state, const Context& context);
};

} // namespace vantrel
