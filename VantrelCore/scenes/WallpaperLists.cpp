#include "VantrelCore/scenes/WallpaperLists.h"

#include "VantrelCore/scenes/SystemWallpaperCatalog.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/XmlScanner.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <utility>

namespace vantrel::WallpaperLists {

namespace {

// By language; the key of the untranslated one is "".
using Names = std::map<std::string, std::string>;

std::string preferred(const Names& names, const std::vector<std::string>& languages) {
    for (const std::string& language : languages) {
        if (const auto found = names.find(language); found != names.end() && !found->second.empty()) {
            return found->second;
        }
    }
    const auto untranslated = names.find("");
    return untranslated == names.end() ? std::string() : untranslated->second;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view space = " \t\r\n";
    const auto first = text.find_first_not_of(space);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(space) - first + 1);
}

bool isPicture(const std::string& file) {
    const auto slash = file.find_last_of('/');
    return file.starts_with('/') && SystemWallpaperCatalog::isWallpaperImage(file.substr(slash + 1));
}

// What a <wallpaper> element has said so far.
struct Entry {
    bool isDeleted = false;
    Names names;
    std::string file;
    std::string darkFile;

    void add(const XmlScanner::Token& element, std::string_view text) {
        if (element.text == "name" || element.text == "_name") {
            const auto language = element.attributes.find("xml:lang");
            names[language == element.attributes.end() ? "" : language->second] = text;
        } else if (element.text == "filename") {
            file = text;
        } else if (element.text == "filename-dark") {
            darkFile = text;
        }
    }

    void addTo(std::vector<SystemWallpaper>& found, const std::vector<std::string>& languages) const {
        if (isDeleted) {
            return;
        }
        std::string name = preferred(names, languages);
        if (isPicture(file)) {
            found.push_back({name.empty() ? SystemWallpaperCatalog::displayName(file) : name, file});
        }
        if (isPicture(darkFile) && darkFile != file) {
            name = name.empty() ? SystemWallpaperCatalog::displayName(darkFile) : trf("{} (dark)", name);
            found.push_back({name, darkFile});
        }
    }
};

std::optional<std::string> nameInJson(std::string_view metadata, const std::vector<std::string>& languages) {
    const auto json = nlohmann::json::parse(metadata, nullptr, false);
    const auto plugin = json.is_object() ? json.find("KPlugin") : json.end();
    if (!json.is_object() || plugin == json.end() || !plugin->is_object()) {
        return std::nullopt;
    }
    Names names;
    for (const auto& [key, value] : plugin->items()) {
        if (!value.is_string()) {
            continue;
        }
        if (key == "Name") {
            names[""] = value.get<std::string>();
        } else if (key.starts_with("Name[") && key.ends_with(']')) {
            names[key.substr(5, key.size() - 6)] = value.get<std::string>();
        }
    }
    const std::string name = preferred(names, languages);
    return name.empty() ? std::nullopt : std::optional(name);
}

std::optional<std::string> nameInDesktopFile(std::string_view metadata,
                                             const std::vector<std::string>& languages) {
    Names names;
    bool isInGroup = false;
    while (!metadata.empty()) {
        const auto end = metadata.find('\n');
        const std::string_view line = trimmed(metadata.substr(0, end));
        metadata = end == std::string_view::npos ? std::string_view() : metadata.substr(end + 1);
        if (line.starts_with('[')) {
            isInGroup = line == "[Desktop Entry]";
        }
        const auto equals = line.find('=');
        if (!isInGroup || equals == std::string_view::npos) {
            continue;
        }
        const std::string_view key = trimmed(line.substr(0, equals));
        const std::string value(trimmed(line.substr(equals + 1)));
        if (key == "Name") {
            names[""] = value;
        } else if (key.starts_with("Name[") && key.ends_with(']')) {
            names[std::string(key.substr(5, key.size() - 6))] = value;
        }
    }
    const std::string name = preferred(names, languages);
    return name.empty() ? std::nullopt : std::optional(name);
}

// 0 for a name that is no size.
std::uint64_t pixels(const std::string& name) {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    const char* const end = name.data() + name.size();
    const auto first = std::from_chars(name.data(), end, width);
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != 'x') {
        return 0;
    }
    const auto second = std::from_chars(first.ptr + 1, end, height);
    return second.ec == std::errc() ? std::uint64_t{width} * height : 0;
}

} // namespace

std::vector<SystemWallpaper> pictures(std::string_view xml, const std::vector<std::string>& languages) {
    using Kind = XmlScanner::Token::Kind;
    std::vector<SystemWallpaper> found;
    XmlScanner scanner(xml);
    std::optional<Entry> entry;
    std::optional<XmlScanner::Token> element;
    std::string text;
    while (const auto token = scanner.next()) {
        if (token->kind == Kind::text) {
            text += token->text;
        } else if (token->kind == Kind::start && token->text == "wallpaper") {
            const auto deleted = token->attributes.find("deleted");
            entry.emplace().isDeleted = deleted != token->attributes.end() && deleted->second == "true";
        } else if (token->kind == Kind::start) {
            element = token;
            text.clear();
        } else if (token->text == "wallpaper") {
            if (entry) {
                entry->addTo(found, languages);
            }
            entry.reset();
        } else if (entry && element && element->text == token->text) {
            entry->add(*element, trimmed(text));
            element.reset();
        }
    }
    return found;
}

std::optional<std::string> packageName(std::string_view metadata, const std::vector<std::string>& languages) {
    return trimmed(metadata).starts_with('{') ? nameInJson(metadata, languages)
                                              : nameInDesktopFile(metadata, languages);
}

std::optional<std::string> largestImage(const std::vector<std::string>& fileNames) {
    const std::string* largest = nullptr;
    for (const std::string& name : fileNames) {
        const bool isLarger =
            largest == nullptr || std::pair(pixels(name), std::string_view(name)) >
                                      std::pair(pixels(*largest), std::string_view(*largest));
        if (SystemWallpaperCatalog::isWallpaperImage(name) && isLarger) {
            largest = &name;
        }
    }
    return largest == nullptr ? std::nullopt : std::optional(*largest);
}

std::vector<std::string> languagesOf(std::string_view locale) {
    const std::string name(locale.substr(0, locale.find_first_of(".@")));
    if (name.empty() || name == "C" || name == "POSIX") {
        return {};
    }
    const auto language = name.substr(0, name.find('_'));
    return language == name ? std::vector{name} : std::vector{name, language};
}

} // namespace vantrel::WallpaperLists
