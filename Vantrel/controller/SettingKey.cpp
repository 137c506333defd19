#include "Vantrel/controller/SettingKey.h"

#include "VantrelCore/model/HotKeyCombo.h"
#include "VantrelCore/text/SafeText.h"
#include "VantrelCore/text/SimilarName.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fmt/format.h>
#include <ios>
#include <iterator>
#include <locale>
#include <sstream>
#include <vector>

namespace vantrel {

namespace {

using enum SettingKey::Type;
using enum SettingKey::Purpose;

constexpr std::pair<double, double> keyCodes{0, 127};
constexpr std::pair<double, double> modifierMasks{0, HotKeyModifiers::command | HotKeyModifiers::shift |
                                                         HotKeyModifiers::option | HotKeyModifiers::control};

SettingKey code(std::string_view name, std::optional<std::int64_t> fallback, std::string_view description) {
    return {name, integer, fallback, description, preference, keyCodes};
}

SettingKey modifiers(std::string_view name, std::optional<std::int64_t> fallback,
                     std::string_view description) {
    return {name, integer, fallback, description, preference, modifierMasks};
}

const std::array table{
    SettingKey{"enabled", boolean, true, marked("learn and restore layouts")},
    SettingKey{"autoRestore", boolean, true, marked("put windows back when the displays have settled")},
    SettingKey{"settleDelay", number, 0.5,
               marked("seconds without a display event before the displays count as settled"), preference,
               std::pair{0.0, 60.0}},
    SettingKey{"restoreSizes", boolean, true, marked("put sizes back as well as positions")},
    SettingKey{"placeNewAppsEnabled", boolean, true,
               marked("move the windows of newly started programs to their places")},
    SettingKey{"hideOthersOnSceneSwitch", boolean, false,
               marked("applying a scene hides the applications that are not in it")},
    SettingKey{"quietNudgesEnabled", boolean, true,
               marked("say in the panel when windows have moved away from the scene")},
    SettingKey{"patternSuggestionsStopped", boolean, false,
               marked("never suggest saving a recurring arrangement as a scene")},
    SettingKey{
        "calendarFolders", text, std::nullopt,
        marked(
            "folders of .ics files for calendar triggers, separated by colons; absent: the usual folders of "
            "calendar programs")},
    SettingKey{"showHUD", boolean, true, marked("show the outcome of commands and restores as an overlay")},
    SettingKey{
        "sendCrashReports", boolean, std::nullopt,
        marked("send reports of vantrel's own crashes to its vendor; absent: if this build has a vendor")},
    SettingKey{"showWindowPreviews", boolean, false, marked("draw previews of windows")},
    SettingKey{"launchAtLogin", boolean, false, marked("start with the session")},
    SettingKey{"showDockIcon", boolean, std::nullopt,
               marked("show an icon in the Dock, from the next start; absent: none")},
    SettingKey{"showPanelWithoutTray", boolean, true,
               marked("open the panel at start on a desktop that shows no tray icons")},
    code("restoreKeyCode", HotKeyDefaults::restore.keyCode, marked("the key that restores, as a key code")),
    modifiers("restoreModifiers", HotKeyDefaults::restore.modifiers,
              marked("its modifiers: the sum of 256 command, 512 shift, 2048 option, 4096 control")),
    code("saveKeyCode", HotKeyDefaults::save.keyCode, marked("the key that saves the layout")),
    modifiers("saveModifiers", HotKeyDefaults::save.modifiers, marked("its modifiers")),
    code("stashKeyCode", HotKeyDefaults::stash.keyCode,
         marked("the key that stashes the desk or brings it back")),
    modifiers("stashModifiers", HotKeyDefaults::stash.modifiers, marked("its modifiers")),
    code("undoKeyCode", std::nullopt, marked("the key that undoes the last restore; absent: none")),
    modifiers("undoModifiers", std::nullopt, marked("its modifiers")),
    code("quickSwitcherKeyCode", std::nullopt, marked("the key of the quick switcher; absent: none")),
    modifiers("quickSwitcherModifiers", std::nullopt, marked("its modifiers")),
    SettingKey{"settingsSelectedSection", text, std::nullopt,
               marked("the section that the settings open with; absent: the first"), note},
    SettingKey{"missionControlFixApplied", boolean, false, marked("the Mission Control fix was applied"),
               note},
    SettingKey{"patternObservations", data, std::nullopt,
               marked("recent daily arrangements of the desks, as JSON"), note},
    SettingKey{"patternSuggestionSnoozedUntil", number, std::nullopt,
               marked("when suggestions resume, in seconds since 1970; absent: now"), note},
    SettingKey{"wallpaperMemory", data, std::nullopt, marked("the wallpapers from before a scene, as JSON"),
               note},
    SettingKey{"wallpaperRecents", data, std::nullopt, marked("recently chosen wallpapers, as JSON"), note},
    SettingKey{"workbenchTab", text, std::nullopt, marked("the tab that the workbench was closed with"),
               note},
    SettingKey{"workbenchSize", text, std::nullopt,
               marked("the size of the workbench in points, as \"1180x688\"; absent: the usual one"), note},
    SettingKey{"hasOnboarded", boolean, false, marked("the introduction was shown"), note},
    SettingKey{"dockFrequency", text, std::nullopt,
               marked("how often the user docks, as answered in the introduction"), note},
    SettingKey{"quickSwitcherHintDismissed", boolean, false, marked("the quick switcher's tip was dismissed"),
               note},
    SettingKey{"updateChecker.lastCheck", date, std::nullopt,
               marked("when the program last checked for updates; absent: never"), note},
};

// Parses the entire string as an integer.
std::optional<std::int64_t> wholeNumber(const std::string& text) {
    std::int64_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

// libc++ 17, as on macOS 13 and 14, has no std::from_chars for these.
std::optional<double> realNumber(const std::string& text) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    double value = 0;
    const bool isWholeText =
        stream >> std::noskipws >> value && stream.peek() == std::istringstream::traits_type::eof();
    return isWholeText ? std::optional(value) : std::nullopt;
}

std::optional<DefaultsValue> valueOf(SettingKey::Type type, const std::string& written) {
    switch (type) {
    case boolean:
        if (written == "true" || written == "false") {
            return DefaultsValue(written == "true");
        }
        return std::nullopt;
    case integer:
        return wholeNumber(written);
    case number:
        return realNumber(written);
    case text:
        return DefaultsValue(written);
    case date:
        return dateFromIso8601(written);
    case data:
        return DefaultsValue(DefaultsData{written});
    }
    return std::nullopt;
}

// Long values are cut.
std::string shown(std::string_view written) {
    constexpr std::size_t limit = 60;
    const auto start = Unicode::prefix(written, limit);
    return SafeText::line(start) + (start.size() < written.size() ? "…" : "");
}

std::string refusal(std::string_view written, const SettingKey& key) {
    const bool isQuoted = written.starts_with('"');
    return trf("{0}{1}{0} is not a valid value for {2}, which takes {3}.", isQuoted ? "" : "\"",
               shown(written), key.name, key.typeText());
}

struct TypeOf {
    SettingKey::Type operator()(bool /*value*/) const { return boolean; }
    SettingKey::Type operator()(std::int64_t /*value*/) const { return integer; }
    SettingKey::Type operator()(double /*value*/) const { return number; }
    SettingKey::Type operator()(const std::string& /*value*/) const { return text; }
    SettingKey::Type operator()(Date /*value*/) const { return date; }
    SettingKey::Type operator()(const DefaultsData& /*value*/) const { return data; }
};

} // namespace

bool SettingKey::admits(const DefaultsValue& value) const {
    const auto isInRange = [&](double number) {
        return !range || (number >= range->first && number <= range->second);
    };
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return (type == integer || type == number) && isInRange(static_cast<double>(*whole));
    }
    if (const auto* decimal = std::get_if<double>(&value)) {
        return type == number && isInRange(*decimal);
    }
    return std::visit(TypeOf{}, value) == type;
}

std::expected<DefaultsValue, std::string> SettingKey::read(const std::string& written) const {
    auto value = valueOf(type, written);
    if (!value || !admits(*value)) {
        return std::unexpected(refusal(written, *this));
    }
    return *std::move(value);
}

std::optional<std::string> SettingKey::problemWith(const SettingsLine& line) const {
    if (line.value && admits(*line.value)) {
        return std::nullopt;
    }
    const auto* const string = line.value ? std::get_if<std::string>(&*line.value) : nullptr;
    const bool needsQuotes = type == text && !line.written.starts_with('"') && !line.written.empty();
    return refusal(line.written, *this) + (needsQuotes ? std::string(" ") + tr("Put it in double quotes.")
                                           : string != nullptr && read(*string)
                                               ? std::string(" ") + tr("Write it without quotes.")
                                               : "");
}

std::optional<DefaultsValue> SettingKey::stored(UserDefaults& defaults) const {
    std::optional<DefaultsValue> value;
    const auto take = [&](const auto& found) {
        if (found && admits(*found)) {
            value = *found;
        }
    };
    switch (type) {
    case boolean:
        take(defaults.boolean(name));
        break;
    case integer:
        take(defaults.integer(name));
        break;
    case number:
        take(defaults.number(name));
        break;
    case SettingKey::Type::text:
        take(defaults.text(name));
        break;
    case date:
        take(defaults.date(name));
        break;
    case data:
        take(defaults.data(name));
        break;
    }
    return value;
}

std::string SettingKey::typeText() const {
    const char* const kind = type == boolean   ? tr("true or false")
                             : type == integer ? tr("a whole number")
                             : type == number  ? tr("a number")
                             : type == date    ? tr("a date like 2026-03-02T09:30:00Z")
                             : type == data    ? "JSON"
                                               : tr("a string");
    return range ? trf("{} from {} to {}", kind, range->first, range->second) : kind;
}

std::span<const SettingKey> SettingKeys::all() {
    return table;
}

const SettingKey* SettingKeys::named(std::string_view name) {
    const auto found = std::ranges::find(table, name, &SettingKey::name);
    return found == table.end() ? nullptr : &*found;
}

std::string SettingKeys::unknown(std::string_view name) {
    std::vector<std::string_view> names;
    std::ranges::transform(table, std::back_inserter(names), &SettingKey::name);
    const auto meant = SimilarName::of(name, names);
    const std::string sentence = trf("There is no setting \"{}\".", shown(name));
    return meant ? sentence + " " + trf("Did you mean \"{}\"?", *meant) : sentence;
}

} // namespace vantrel
