#include "VantrelCore/stores/JsonFile.h"

#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/stores/SetAside.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>

namespace vantrel {

namespace {

// Records nest only a few levels; copying and writing a document recurse.
constexpr int deepestNesting = 256;

nlohmann::json parse(const std::string& text) {
    const auto refuseDeepNesting = [](int depth, nlohmann::json::parse_event_t, nlohmann::json&) {
        if (depth > deepestNesting) {
            throw JsonCoding::Error("nested too deeply");
        }
        return true;
    };
    return nlohmann::json::parse(text, refuseDeepNesting);
}

// JSON has no infinity or NaN; written as null they would make the file undecodable.
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
    : m_path(std::move(path)), m_schemaVersion(schemaVersion), m_files(files) {}

bool JsonFile::read(const Decode& decode, const Encode& encode) {
    m_unknownKeys = {};
    m_isStuck = false;
    m_isNewer = false;
    const auto content = m_files.read(m_path);
    if (!content && content.error() == std::errc::no_such_file_or_directory) {
        return m_mayComeBack && readSetAside(decode, encode);
    }
    m_trouble = content ? Kind::undecodable : Kind::unreadable;
    m_reason = content ? take(*content, decode, encode) : content.error().message();
    if (!m_reason.empty()) {
        m_mayComeBack = m_trouble == Kind::unreadable;
        moveAside();
    }
    return m_reason.empty();
}

std::string JsonFile::take(const std::string& content, const Decode& decode, const Encode& encode) {
    return problemWith(content, [&](const nlohmann::json& document) {
        const bool isNewer =
            m_schemaVersion && JsonCoding::required<std::int64_t>(document, "version") > *m_schemaVersion;
        decode(document);
        nlohmann::json known;
        encode(known);
        m_unknownKeys = UnknownKeys::between(document, known);
        m_isNewer = isNewer;
    });
}

std::string JsonFile::problemWith(const std::string& content, const Decode& decode) {
    try {
        decode(parse(content));
        return {};
    } catch (const nlohmann::json::parse_error& error) {
        return fmt::format("invalid JSON at byte {}", error.byte);
    } catch (const std::exception& error) {
        return error.what();
    }
}

bool JsonFile::readSetAside(const Decode& decode, const Encode& encode) {
    const auto copy = SetAside::newestCopy(m_path);
    const auto content = m_files.read(copy);
    if (!content) {
        m_mayComeBack = content.error() != std::errc::no_such_file_or_directory;
        if (m_mayComeBack) {
            report(Kind::unreadable, content.error().message(), copy);
        }
        return false;
    }
    m_mayComeBack = false;
    if (const std::string reason = take(*content, decode, encode); !reason.empty()) {
        report(Kind::undecodable, reason, copy);
        return false;
    }
    // If this fails, the content is used all the same, and the next write puts it in place.
    const std::error_code error = m_files.rename(copy, m_path);
    report(Kind::putBack, error ? error.message() : "");
    return true;
}

bool JsonFile::write(const Encode& encode) {
    try {
        nlohmann::json document;
        encode(document);
        if (m_schemaVersion) {
            document["version"] = *m_schemaVersion;
        }
        UnknownKeys stillUnknown = m_unknownKeys.addTo(document);
        if (!allNumbersAreFinite(document)) {
            return refuse("it contains a number that is not finite");
        }
        const auto text = document.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
        if (text.size() > FileSystem::maxBytes) {
            return refuse("it would be too large to read again");
        }
        if (const std::string reason = makeOriginalSafe(); !reason.empty()) {
            return refuse(reason);
        }
        const std::error_code error = m_files.writeAtomically(m_path, text);
        if (!isReplaced(error)) {
            return refuse(error.message());
        }
        m_unknownKeys = std::move(stillUnknown);
        m_isNewer = false;
        if (error) {
            report(Kind::notFlushed, error.message());
        } else {
            m_news.emplace_back([path = m_path](FileIncidents& incidents) {
                incidents.clear(path, FileIncident::Topic::writing);
            });
        }
    } catch (const std::exception& error) {
        return refuse(error.what());
    }
    return true;
}

bool JsonFile::refuse(const std::string& reason) {
    report(Kind::notWritten, reason);
    return false;
}

void JsonFile::moveAside() {
    const std::error_code error = SetAside::move(m_files, m_path);
    const bool isGone = error == std::errc::no_such_file_or_directory;
    m_isStuck = error && !isGone;
    if (m_isStuck) {
        report(Kind::stuck, m_reason + "; " + error.message());
    } else if (!isGone) {
        report(m_trouble, m_reason, SetAside::newestCopy(m_path));
    }
}

std::string JsonFile::makeOriginalSafe() {
    if (m_isStuck) {
        moveAside();
        if (m_isStuck) {
            return "the existing file cannot be moved aside";
        }
    }
    std::string reason;
    if (m_isNewer) {
        reason = keepCopy(".newer", Kind::newerKept);
    }
    if (reason.empty() && m_keepsExpired.exchange(false)) {
        reason = keepCopy(".expired", Kind::expiredKept);
        m_keepsExpired = !reason.empty();
    }
    return reason;
}

std::string JsonFile::keepCopy(std::string_view suffix, Kind kind) {
    const auto content = m_files.read(m_path);
    if (!content) {
        return content.error() == std::errc::no_such_file_or_directory ? "" : content.error().message();
    }
    const auto copy = SetAside::withSuffix(m_path, suffix);
    const std::error_code error = m_files.writeAtomically(copy, *content);
    if (!isReplaced(error)) {
        return error.message();
    }
    report(kind, {}, copy);
    return {};
}

void JsonFile::report(Kind kind, std::string reason, std::filesystem::path copy) {
    m_news.emplace_back([incident = FileIncident{.file = m_path,
                                                 .kind = kind,
                                                 .reason = std::move(reason),
                                                 .copy = std::move(copy)}](FileIncidents& incidents) {
        incidents.report(incident);
    });
}

} // namespace vantrel
