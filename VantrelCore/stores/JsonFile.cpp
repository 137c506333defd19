#include "VantrelCore/stores/JsonFile.h"

#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <string_view>
#include <utility>

namespace vantrel {

namespace {

// Records nest a handful of levels; copying and writing a document recurse into it.
constexpr int deepestNesting = 256;

std::filesystem::path withSuffix(const std::filesystem::path& path, std::string_view suffix) {
    std::filesystem::path result = path;
    result += suffix;
    return result;
}

nlohmann::json parse(const std::string& text) {
    const auto refuseDeepNesting = [](int depth, nlohmann::json::parse_event_t, nlohmann::json&) {
        if (depth > deepestNesting) {
            throw JsonCoding::Error("nested too deeply");
        }
        return true;
    };
    return nlohmann::json::parse(text, refuseDeepNesting);
}

// JSON has no infinite numbers and no not-a-number; as null they would make the file undecodable.
bool allNumbersAreFinite(const nlohmann::json& json) {
    if (json.is_number_float()) {
        return std::isfinite(json.get<double>());
    }
    return std::ranges::all_of(json, [](const nlohmann::json& item) {
        return !(item.is_structured() || item.is_number_float()) || allNumbersAreFinite(item);
    });
}

} // namespace

JsonFile::JsonFile(std::filesystem::path path, std::optional<std::int64_t> schemaVersion, FileSystem& files)
    : m_path(std::move(path)), m_schemaVersion(schemaVersion), m_files(&files),
      m_unknownKeys(std::make_unique<nlohmann::json>(nlohmann::json::object())) {}

JsonFile::JsonFile(JsonFile&& other) noexcept = default;
JsonFile& JsonFile::operator=(JsonFile&& other) noexcept = default;
JsonFile::~JsonFile() = default;

bool JsonFile::read(const Decode& decode, const Encode& encode) {
    *m_unknownKeys = nlohmann::json::object();
    m_holdsUndecodable = false;
    m_isNewer = false;
    const auto content = m_files->read(m_path);
    if (!content) {
        if (content.error() != std::errc::no_such_file_or_directory) {
            moveAside();
        }
        return false;
    }
    try {
        nlohmann::json document = parse(*content);
        const bool isNewer =
            m_schemaVersion && JsonCoding::required<std::int64_t>(document, "version") > *m_schemaVersion;
        decode(document);
        nlohmann::json known;
        encode(known);
        for (auto& [key, value] : document.items()) {
            if (!known.contains(key) && !value.is_null()) {
                (*m_unknownKeys)[key] = std::move(value);
            }
        }
        m_isNewer = isNewer;
        return true;
    } catch (const std::exception&) {
        *m_unknownKeys = nlohmann::json::object();
        moveAside();
        return false;
    }
}

bool JsonFile::write(const Encode& encode) {
    try {
        nlohmann::json document;
        encode(document);
        if (m_schemaVersion) {
            document["version"] = *m_schemaVersion;
        }
        for (const auto& [key, value] : m_unknownKeys->items()) {
            if (!document.contains(key)) {
                document[key] = value;
            }
        }
        if (!allNumbersAreFinite(document) || !originalIsSafe()) {
            return false;
        }
        const auto text = document.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
        if (m_files->writeAtomically(m_path, text)) {
            return false;
        }
    } catch (const std::exception&) {
        return false;
    }
    m_isNewer = false;
    return true;
}

void JsonFile::moveAside() {
    // Renaming replaces an older one, and leaves it alone when it fails.
    const auto failed = [this](std::string_view suffix) {
        const std::error_code error = m_files->rename(m_path, withSuffix(m_path, suffix));
        return error && error != std::errc::no_such_file_or_directory;
    };
    // The second name serves when something immovable, a folder say, stands at the first.
    m_holdsUndecodable = failed(".corrupt") && failed(".corrupt.1");
}

bool JsonFile::originalIsSafe() {
    if (m_holdsUndecodable) {
        moveAside();
        return !m_holdsUndecodable;
    }
    if (!m_isNewer) {
        return true;
    }
    const auto content = m_files->read(m_path);
    if (!content) {
        return content.error() == std::errc::no_such_file_or_directory;
    }
    return !m_files->writeAtomically(withSuffix(m_path, ".newer"), *content);
}

} // namespace vantrel
