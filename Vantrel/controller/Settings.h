// Typed access to the user's settings. The table of keys is in SettingKey.h.
#pragma once

#include "Vantrel/controller/SettingKey.h"
#include "VantrelCore/model/DailyLayoutObservation.h"
#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/HotKeyCombo.h"
#include "VantrelCore/model/WallpaperMemory.h"

#include <expected>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

// Reads query the defaults every time. A missing key, or a value that has the wrong type or is out of range,
// yields the default. Writes return false when the value could not be made durable.
class Settings {
public:
    static constexpr const char* autoRestoreKey = "autoRestore";
    static constexpr const char* settleDelayKey = "settleDelay";
    static constexpr const char* restoreSizesKey = "restoreSizes";

    explicit Settings(UserDefaults& defaults) : m_defaults(defaults) {}

    // Stores a value, which must be valid for `key`. On failure nothing changes, and the error is a sentence
    // for the user.
    std::expected<void, std::string> set(const SettingKey& key, const DefaultsValue& value);
    // Removes the stored value, so that the default applies. Fails like set().
    std::expected<void, std::string> reset(const SettingKey& key);

    // The preferences that have a value, by key; the default where none is stored.
    [[nodiscard]] std::map<std::string_view, DefaultsValue> preferences() const;

    // Learn and restore layouts.
    [[nodiscard]] bool enabled() const { return boolean("enabled"); }
    bool setEnabled(bool isEnabled) { return m_defaults.set("enabled", isEnabled); }

    // Put windows back when the displays have settled.
    [[nodiscard]] bool autoRestore() const { return boolean(autoRestoreKey); }
    // Seconds without a display event before the displays count as settled.
    [[nodiscard]] double settleDelay() const { return number(settleDelayKey).value(); }
    // Put sizes back as well as positions.
    [[nodiscard]] bool restoreSizes() const { return boolean(restoreSizesKey); }
    [[nodiscard]] bool showHUD() const { return boolean("showHUD"); }
    [[nodiscard]] bool quietNudgesEnabled() const { return boolean("quietNudgesEnabled"); }
    [[nodiscard]] bool placeNewAppsEnabled() const { return boolean("placeNewAppsEnabled"); }
    [[nodiscard]] bool showWindowPreviews() const { return boolean("showWindowPreviews"); }
    [[nodiscard]] bool launchAtLogin() const { return boolean("launchAtLogin"); }
    [[nodiscard]] bool missionControlFixApplied() const { return boolean("missionControlFixApplied"); }
    bool setMissionControlFixApplied(bool isApplied) {
        return m_defaults.set("missionControlFixApplied", isApplied);
    }
    // Unset means the first section.
    [[nodiscard]] std::optional<std::string> settingsSelectedSection() const {
        return text("settingsSelectedSection");
    }
    // Unset means no icon.
    [[nodiscard]] std::optional<bool> showDockIcon() const { return optionalBoolean("showDockIcon"); }

    // Open the panel at start on a desktop that shows no tray icons.
    [[nodiscard]] bool showPanelWithoutTray() const { return boolean("showPanelWithoutTray"); }

    // Unset means the build's default.
    [[nodiscard]] std::optional<bool> sendCrashReports() const { return optionalBoolean("sendCrashReports"); }

    // Applying a scene hides the applications that are not in it.
    [[nodiscard]] bool hideOthersOnSceneSwitch() const { return boolean("hideOthersOnSceneSwitch"); }
    bool setHideOthersOnSceneSwitch(bool hides) { return m_defaults.set("hideOthersOnSceneSwitch", hides); }

    [[nodiscard]] HotKeyCombo restoreHotkey() const { return hotkey("restore").value(); }
    [[nodiscard]] HotKeyCombo saveHotkey() const { return hotkey("save").value(); }
    [[nodiscard]] HotKeyCombo stashHotkey() const { return hotkey("stash").value(); }
    [[nodiscard]] std::optional<HotKeyCombo> undoHotkey() const { return hotkey("undo"); }
    [[nodiscard]] std::optional<HotKeyCombo> quickSwitcherHotkey() const { return hotkey("quickSwitcher"); }
    bool setRestoreHotkey(const HotKeyCombo& combo) { return setHotkey("restore", combo); }
    bool setSaveHotkey(const HotKeyCombo& combo) { return setHotkey("save", combo); }
    bool setStashHotkey(const HotKeyCombo& combo) { return setHotkey("stash", combo); }
    // None removes both keys.
    bool setUndoHotkey(const std::optional<HotKeyCombo>& combo) { return setHotkey("undo", combo); }
    bool setQuickSwitcherHotkey(const std::optional<HotKeyCombo>& combo) {
        return setHotkey("quickSwitcher", combo);
    }

    // Undecodable data reads as empty, and the next save overwrites it.
    [[nodiscard]] std::vector<DailyLayoutObservation> loadPatternObservations() const;
    bool savePatternObservations(const std::vector<DailyLayoutObservation>& observations);
    // None if not snoozed.
    [[nodiscard]] std::optional<Date> patternSuggestionSnoozedUntil() const;
    bool setPatternSuggestionSnoozedUntil(const std::optional<Date>& date);
    [[nodiscard]] bool patternSuggestionsStopped() const { return boolean("patternSuggestionsStopped"); }
    bool setPatternSuggestionsStopped(bool stopped) {
        return m_defaults.set("patternSuggestionsStopped", stopped);
    }

    // Undecodable data reads as empty, and the next save overwrites it.
    [[nodiscard]] WallpaperMemory wallpaperMemory() const;
    bool setWallpaperMemory(const WallpaperMemory& memory);
    // Paths of image files, newest first, as many as WallpaperRecents keeps.
    [[nodiscard]] std::vector<std::string> wallpaperRecents() const;
    bool noteWallpaper(const std::string& file);

    // Folders of .ics files. Empty means the usual folders of calendar programs.
    [[nodiscard]] std::vector<std::string> calendarFolders() const;

    [[nodiscard]] bool hasOnboarded() const { return boolean("hasOnboarded"); }
    bool setHasOnboarded(bool has) { return m_defaults.set("hasOnboarded", has); }
    [[nodiscard]] std::optional<std::string> dockFrequency() const { return text("dockFrequency"); }
    [[nodiscard]] bool quickSwitcherHintDismissed() const { return boolean("quickSwitcherHintDismissed"); }

    // None if never checked.
    [[nodiscard]] std::optional<Date> updateCheckerLastCheck() const;
    bool setUpdateCheckerLastCheck(Date date);

private:
    [[nodiscard]] std::optional<DefaultsValue> value(std::string_view key) const;
    [[nodiscard]] bool boolean(std::string_view key) const;
    [[nodiscard]] std::optional<bool> optionalBoolean(std::string_view key) const;
    [[nodiscard]] std::optional<double> number(std::string_view key) const;
    [[nodiscard]] std::optional<std::string> text(std::string_view key) const;
    // The two keys are `surface` followed by "KeyCode" and "Modifiers".
    [[nodiscard]] std::optional<HotKeyCombo> hotkey(const std::string& surface) const;
    bool setHotkey(const std::string& surface, const std::optional<HotKeyCombo>& combo);
    template <typename T>
    [[nodiscard]] T decoded(std::string_view key) const;
    template <typename T>
    bool setEncoded(std::string_view key, const T& record);

    UserDefaults& m_defaults;
};

} // namespace vantrel
