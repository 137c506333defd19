#include "VantrelCore/model/SessionNotes.h"

#include "VantrelCore/model/JsonCoding.h"

#include <charconv>
#include <fmt/format.h>
#include <string_view>
#include <utility>

namespace vantrel {

namespace {

// Text, because JSON numbers are exact only up to 2^53 for many readers.
std::string textOf(WindowID window) {
    return fmt::format("{:x}", std::to_underlying(window));
}

WindowID windowFrom(const nlohmann::json& json) {
    const auto text = JsonCoding::required<std::string>(json, "window");
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw JsonCoding::Error("not a window: " + text);
    }
    return WindowID{value};
}

template <typename Read>
void readEach(const nlohmann::json& json, const char* key, Read&& read) {
    const auto found = json.find(key);
    if (found == json.end()) {
        throw JsonCoding::Error(std::string("missing key ") + key);
    }
    JsonCoding::requireArray(*found);
    for (const auto& item : *found) {
        read(item);
    }
}

} // namespace

void to_json(nlohmann::json& json, const SessionNotes& notes) {
    auto arrangements = nlohmann::json::array();
    for (const auto& each : notes.arrangements) {
        auto windows = nlohmann::json::array();
        for (const auto& [order, window] : each.windowByOrder) {
            windows.push_back({{"zOrder", order}, {"window", textOf(window)}});
        }
        nlohmann::json arrangement{{"windows", std::move(windows)}};
        JsonCoding::put(arrangement, "capturedAt", each.capturedAt);
        arrangements.push_back(std::move(arrangement));
    }
    auto strays = nlohmann::json::array();
    for (const auto& stray : notes.strays) {
        strays.push_back({{"configID", stray.configID},
                          {"window", textOf(stray.window)},
                          {"saved", stray.saved},
                          {"left", stray.left}});
    }
    auto normalFrames = nlohmann::json::array();
    for (const auto& [window, frame] : notes.normalFrames) {
        normalFrames.push_back({{"window", textOf(window)}, {"frame", frame}});
    }
    json = {{"version", notes.version},
            {"session", notes.session},
            {"arrangements", std::move(arrangements)},
            {"strays", std::move(strays)},
            {"normalFrames", std::move(normalFrames)}};
}

void from_json(const nlohmann::json& json, SessionNotes& notes) {
    SessionNotes read{.version = JsonCoding::required<std::int64_t>(json, "version"),
                      .session = JsonCoding::required<std::string>(json, "session"),
                      .arrangements = {},
                      .strays = {},
                      .normalFrames = {}};
    readEach(json, "arrangements", [&](const nlohmann::json& item) {
        SessionNotes::Arrangement arrangement{JsonCoding::required<Date>(item, "capturedAt"), {}};
        readEach(item, "windows", [&](const nlohmann::json& window) {
            arrangement.windowByOrder.emplace(JsonCoding::required<std::int64_t>(window, "zOrder"),
                                              windowFrom(window));
        });
        read.arrangements.push_back(std::move(arrangement));
    });
    readEach(json, "strays", [&](const nlohmann::json& item) {
        read.strays.push_back({.configID = JsonCoding::required<std::string>(item, "configID"),
                               .window = windowFrom(item),
                               .saved = JsonCoding::required<WindowRecord>(item, "saved"),
                               .left = JsonCoding::required<Rect>(item, "left")});
    });
    readEach(json, "normalFrames", [&](const nlohmann::json& item) {
        read.normalFrames.emplace(windowFrom(item), JsonCoding::required<Rect>(item, "frame"));
    });
    notes = std::move(read);
}

} // namespace vantrel
