#include "Vantrel/controller/Settings.h"

#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/scenes/WallpaperRecents.h"
#include "VantrelCore/text/Translation.h"

#include <cmath>
#include <fmt/format.h>

namespace vantrel {

static std::expected<void, std::string> written(bool isWritten) {
    return isWritten ? std::expected<void, std::string>()
                     : std::unexpected(tr("The settings could not be written to disk. Nothing was changed."));
}

std::expected<void, std::string> Settings::set(const SettingKey& key, const DefaultsValue& value) {
    if (!key.admits(value)) {
        return std::unexpected(trf("{} takes {}.", key.name, key.typeText()));
    }
    return written(m_defaults.set(key.name, value));
}

std::expected<void, std::string> Settings::reset(const SettingKey& key) {
    return written(m_defaults.remove(key.name));
}

std::map<std::string_view, DefaultsValue> Settings::preferences() const {
    std::map<std::string_view, DefaultsValue> all;
    for (const SettingKey& key : SettingKeys::all()) {
        if (key.purpose == SettingKey::Purpose::preference) {
            if (auto found = value(key.name)) {
                all.emplace(key.name, *std::move(found));
            }
        }
    }
    return all;
}

std::optional<DefaultsValue> Settings::value(std::string_view name) const {
    const SettingKey* const key = SettingKeys::named(name);
    if (key == nullptr) {
        return std::nullopt;
    }
    auto found = key->stored(m_defaults);
    return found ? found : key->fallback;
}

bool Settings::boolean(std::string_view key) const {
    return std::get<bool>(value(key).value_or(false));
}

std::optional<double> Settings::number(std::string_view key) const {
    const auto found = value(key);
    return found ? std::optional(std::get<double>(*found)) : std::nullopt;
}

std::optional<std::string> Settings::text(std::string_view key) const {
    const auto found = value(key);
    return found ? std::optional(std::get<std::string>(*found)) : std::nullopt;
}

std::optional<bool> Settings::optionalBoolean(std::string_view key) const {
    const auto found = value(key);
    return found ? std::optional(std::get<bool>(*found)) : std::nullopt;
}

std::optional<HotKeyCombo> Settings::hotkey(const std::string& surface) const {
    const auto code = value(surface + "KeyCode");
    const auto modifiers = value(surface + "Modifiers");
    if (!code || !modifiers) {
        return std::nullopt;
    }
    return HotKeyCombo{std::get<std::int64_t>(*code), std::get<std::int64_t>(*modifiers)};
}

bool Settings::setHotkey(const std::string& surface, const std::optional<HotKeyCombo>& combo) {
    const std::string codeKey = surface + "KeyCode";
    const std::string modifiersKey = surface + "Modifiers";
    const auto codeBefore = m_defaults.integer(codeKey);
    const auto write = [this](const std::string& key, std::optional<std::int64_t> value) {
        return value ? m_defaults.set(key, *value) : m_defaults.remove(key);
    };
    if (!write(codeKey, combo ? std::optional(combo->keyCode) : std::nullopt)) {
        return false;
    }
    if (!write(modifiersKey, combo ? std::optional(combo->modifiers) : std::nullopt)) {
        // Otherwise the new key with the old modifiers would form an unintended shortcut.
        write(codeKey, codeBefore);
        return false;
    }
    return true;
}

template <typename T>
T Settings::decoded(std::string_view key) const {
    try {
        const auto found = value(key);
        return found ? JsonCoding::value<T>(nlohmann::json::parse(std::get<DefaultsData>(*found).bytes))
                     : T{};
    } catch (const std::exception&) {
        return {};
    }
}

template <typename T>
bool Settings::setEncoded(std::string_view key, const T& record) {
    // Titles and names come from other programs and may contain invalid UTF-8.
    return m_defaults.set(key, DefaultsData{nlohmann::json(record).dump(
                                   -1, ' ', false, nlohmann::json::error_handler_t::replace)});
}

std::vector<DailyLayoutObservation> Settings::loadPatternObservations() const {
    return decoded<std::vector<DailyLayoutObservation>>("patternObservations");
}

bool Settings::savePatternObservations(const std::vector<DailyLayoutObservation>& observations) {
    return setEncoded("patternObservations", observations);
}

std::optional<Date> Settings::patternSuggestionSnoozedUntil() const {
    // In seconds. A Date cannot represent values beyond this, and nobody snoozes for centuries.
    constexpr double lastSecond = 1e12;
    const auto seconds = number("patternSuggestionSnoozedUntil");
    if (!seconds || !(std::abs(*seconds) < lastSecond)) {
        return std::nullopt;
    }
    return dateAfter(Date{}, *seconds);
}

bool Settings::setPatternSuggestionSnoozedUntil(const std::optional<Date>& date) {
    return date ? m_defaults.set("patternSuggestionSnoozedUntil", secondsBetween(Date{}, *date))
                : m_defaults.remove("patternSuggestionSnoozedUntil");
}

WallpaperMemory Settings::wallpaperMemory() const {
    return decoded<WallpaperMemory>("wallpaperMemory");
}

bool Settings::setWallpaperMemory(const WallpaperMemory& memory) {
    return setEncoded("wallpaperMemory", memory);
}

std::vector<std::string> Settings::wallpaperRecents() const {
    return decoded<std::vector<std::string>>("wallpaperRecents");
}

bool Settings::noteWallpaper(const std::string& file) {
    const auto before = wallpaperRecents();
    const auto after = WallpaperRecents::with(before, file);
    return after == before || setEncoded("wallpaperRecents", after);
}

std::vector<std::string> Settings::calendarFolders() const {
    std::vector<std::string> folders;
    std::string list = text("calendarFolders").value_or("");
    for (std::size_t start = 0; start < list.size();) {
        const std::size_t end = std::min(list.find(':', start), list.size());
        if (end > start) {
            folders.push_back(list.substr(start, end - start));
        }
        start = end + 1;
    }
    return folders;
}

std::optional<Date> Settings::updateCheckerLastCheck() const {
    const auto found = value("updateChecker.lastCheck");
    return found ? std::optional(std::get<Date>(*found)) : std::nullopt;
}

bool Settings::setUpdateCheckerLastCheck(Date date) {
    return m_defaults.set("updateChecker.lastCheck", date);
}

} // namespace vantrel
