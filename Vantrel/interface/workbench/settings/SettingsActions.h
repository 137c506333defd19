// The operations of the tab Settings.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/interface/controls/HotKeyRecorder.h"
#include "Vantrel/interface/workbench/settings/SettingsContent.h"
#include "VantrelCore/commands/HotKeyCollisions.h"
#include "VantrelCore/model/HotKeyCombo.h"
#include "VantrelCore/model/SceneTrigger.h"
#include "VantrelCore/ports/FileSystem.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

struct SettingsActions {
    // Why it was not done, as a sentence; none if it was.
    using Problem = std::optional<std::string>;
    using Done = std::function<void(const Problem&)>;

    std::function<SettingsContent::Context()> context = [] { return SettingsContent::Context{}; };
    std::function<Problem(std::string_view key, bool isOn)> set = [](auto, bool) { return std::nullopt; };
    std::function<Problem(double seconds)> setSettleDelay = [](double) { return std::nullopt; };

    HotKeyRecorder::KeyReader keyCode = [](const QKeyEvent&) { return std::nullopt; };
    std::function<std::vector<TakenHotKey>()> takenHotKeys = [] { return std::vector<TakenHotKey>(); };
    // None clears the shortcut, or returns it to its default.
    std::function<Problem(const HotKeySurface&, std::optional<HotKeyCombo>)> setHotkey =
        [](const auto&, auto) { return std::nullopt; };

    std::function<Problem(const SceneTrigger::Kind&, const std::string& sceneID)> addTrigger =
        [](const auto&, const auto&) { return std::nullopt; };
    // Parses a time as people write it.
    std::function<Problem(const std::string& id, const std::string& time)> setTriggerTime =
        [](const auto&, const auto&) { return std::nullopt; };
    std::function<Problem(const std::string& id, const std::string& sceneID)> setTriggerScene =
        [](const auto&, const auto&) { return std::nullopt; };
    std::function<Problem(const std::string& id, bool isOn)> setTriggerEnabled = [](const auto&, bool) {
        return std::nullopt;
    };
    std::function<void(const std::string& id)> deleteTrigger = [](const auto&) {};

    std::function<void()> swapDisplays = [] {};
    std::function<void()> joinDesks = [] {};

    // Keeps Mission Control from moving windows.
    std::function<void()> fixMissionControl = [] {};

    struct CrashReport {
        std::filesystem::path file;
        // "Today 9:12 AM".
        std::string time;
    };
    // Those that wait, newest first.
    std::function<std::vector<CrashReport>()> crashReports = [] { return std::vector<CrashReport>(); };
    // Null where there is nobody to send them to.
    std::function<void(std::function<void()> done)> sendCrashReports{};
    // Can be undone like other deletions.
    std::function<Problem(const std::vector<CrashReport>&)> deleteCrashReports = [](const auto&) {
        return std::nullopt;
    };
    // Null where files cannot be opened.
    std::function<void(const std::filesystem::path&)> openCrashReport{};
    // Writes a text to attach to a bug report and opens it. Null where there are no files.
    std::function<void()> exportReport{};
    // Null where these cannot be opened.
    std::function<void()> openLog{};
    std::function<void()> openFolder{};
    std::function<void()> openSettingsFile{};

    std::function<void(const std::string& key, Done done)> activate = [](const auto&, const auto&) {};
    std::function<void(Done done)> deactivate = [](const auto&) {};
    // Null where nothing can be bought.
    std::function<void()> purchase{};

    // Null where the system updates the program.
    std::function<void()> checkForUpdates{};
    std::function<void()> showIntroduction{};
    // Texts that are installed with the program; none if they are not.
    using InstalledText = std::function<std::optional<std::string>()>;
    InstalledText whatChanged = [] { return std::nullopt; };
    InstalledText libraryLicenses = [] { return std::nullopt; };

    // Operations outside the controller.
    struct Services {
        HotKeyRecorder::KeyReader keyCode = [](const QKeyEvent&) { return std::nullopt; };
        std::filesystem::path supportDirectory{};
        std::filesystem::path logFile{};
        // Of the texts that are installed with the program.
        std::filesystem::path textsDirectory{};
        // Null without a disk.
        FileSystem* files = nullptr;
        // With its version.
        std::string operatingSystem{};
        // Opens a file or folder; null where that is not possible.
        std::function<bool(const std::filesystem::path&)> open{};
        // Null where there is nobody to send them to.
        std::function<void(std::function<void()> done)> sendCrashReports{};
        // Null where nothing can be bought.
        std::function<void()> purchase{};
        // Null where the system updates the program.
        std::function<void()> checkForUpdates{};
        std::function<void()> showIntroduction{};
        // What keeps Mission Control from moving windows; null while it does not move any.
        std::function<std::function<void()>()> missionControlFix = [] { return nullptr; };
    };

    // `tell` is called with the outcome of a request, only while `alive` exists.
    [[nodiscard]] static SettingsActions
    of(AppController& controller, const Services& services, const std::weak_ptr<bool>& alive,
       const std::function<void(const std::string&, bool isProblem)>& tell);

    std::function<std::string()> rememberedSection = [] { return std::string(); };
    std::function<void(const std::string& name)> rememberSection = [](const auto&) {};
};

} // namespace vantrel
