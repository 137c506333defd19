#include "Vantrel/platform/qt/QtUserDefaults.h"

#include "VantrelCore/stores/SetAside.h"

#include <fmt/format.h>

#include <chrono>
#include <utility>

namespace vantrel {

namespace {

constexpr std::chrono::milliseconds editorPause{100};

QString qtPath(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

// Resolves symbolic links.
std::filesystem::path linkTarget(const std::filesystem::path& file) {
    std::error_code error;
    auto target = std::filesystem::weakly_canonical(file, error);
    return error ? file : target;
}

} // namespace

QtUserDefaults::QtUserDefaults(std::filesystem::path file, FileSystem& files, FileIncidents& incidents,
                               Log log)
    : m_file(std::move(file)), m_files(files), m_incidents(incidents), m_log(std::move(log)) {
    // The folder is watched because editors replace the file, so it must exist.
    if (const auto error = m_files.createDirectories(m_file.parent_path())) {
        m_log(fmt::format("settings: cannot create the folder {} ({}); using the defaults",
                          m_file.parent_path().string(), error.message()));
    }
    m_reloadDelay.setSingleShot(true);
    m_reloadDelay.setInterval(editorPause);
    QObject::connect(&m_reloadDelay, &QTimer::timeout, &m_reloadDelay, [this] {
        reload();
        watch();
    });
    m_notify.setSingleShot(true);
    m_notify.setInterval(0);
    QObject::connect(&m_notify, &QTimer::timeout, &m_notify, [this] {
        if (const auto handler = m_handler) {
            handler();
        }
    });
    const auto changed = [this] { m_reloadDelay.start(); };
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_reloadDelay, changed);
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_reloadDelay, changed);
    watch();
    reload();
}

std::optional<bool> QtUserDefaults::boolean(std::string_view key) {
    const auto found = m_content.values.find(key);
    if (found == m_content.values.end()) {
        return std::nullopt;
    }
    const auto* value = std::get_if<bool>(&found->second);
    return value != nullptr ? std::optional(*value) : std::nullopt;
}

std::optional<std::int64_t> QtUserDefaults::integer(std::string_view key) {
    const auto found = m_content.values.find(key);
    if (found == m_content.values.end()) {
        return std::nullopt;
    }
    const auto* value = std::get_if<std::int64_t>(&found->second);
    return value != nullptr ? std::optional(*value) : std::nullopt;
}

std::optional<double> QtUserDefaults::number(std::string_view key) {
    const auto found = m_content.values.find(key);
    if (found == m_content.values.end()) {
        return std::nullopt;
    }
    if (const auto* whole = std::get_if<std::int64_t>(&found->second)) {
        return static_cast<double>(*whole);
    }
    const auto* value = std::get_if<double>(&found->second);
    return value != nullptr ? std::optional(*value) : std::nullopt;
}

std::optional<std::string> QtUserDefaults::text(std::string_view key) {
    const auto found = m_content.values.find(key);
    if (found == m_content.values.end()) {
        return std::nullopt;
    }
    const auto* value = std::get_if<std::string>(&found->second);
    return value != nullptr ? std::optional(*value) : std::nullopt;
}

std::optional<Date> QtUserDefaults::date(std::string_view key) {
    const auto written = text(key);
    return written ? dateFromIso8601(*written) : std::nullopt;
}

std::optional<DefaultsData> QtUserDefaults::data(std::string_view key) {
    auto written = text(key);
    return written ? std::optional(DefaultsData{std::move(*written)}) : std::nullopt;
}

bool QtUserDefaults::set(std::string_view key, const DefaultsValue& value) {
    if (!reload()) {
        return false;
    }
    if (const auto* const date = std::get_if<Date>(&value)) {
        return setPlain(key, iso8601Text(*date));
    }
    const auto* const data = std::get_if<DefaultsData>(&value);
    return setPlain(key, data != nullptr ? DefaultsValue(data->bytes) : value);
}

bool QtUserDefaults::setPlain(std::string_view key, const DefaultsValue& value) {
    const auto found = m_content.values.find(key);
    if (found != m_content.values.end() && found->second == value) {
        return true;
    }
    return write(SettingsText::withValue(m_text.empty() ? SettingsText::heading() : m_text, key, value));
}

bool QtUserDefaults::remove(std::string_view key) {
    if (!reload()) {
        return false;
    }
    if (!m_content.values.contains(key)) {
        return true;
    }
    return write(SettingsText::withoutKey(m_text, key));
}

void QtUserDefaults::setChangeHandler(std::function<void()> handler) {
    m_handler = std::move(handler);
}

bool QtUserDefaults::reload() {
    const auto before = m_content;
    const bool readable = read();
    if (m_handler && m_content != before) {
        m_notify.start();
    }
    return readable;
}

bool QtUserDefaults::read() {
    auto text = m_files.read(m_file);
    const bool missing = !text && text.error() == std::errc::no_such_file_or_directory;
    if (!text && !missing) {
        m_text.clear();
        m_content = {};
        m_isUnreadable = true;
        report(FileIncident::Kind::stuck, text.error().message());
        return false;
    }
    m_text = missing ? std::string() : std::move(*text);
    m_content = SettingsText::parse(m_text);
    if (std::exchange(m_isUnreadable, false) || m_content.invalidLines().empty()) {
        m_incidents.clear(m_file, FileIncident::Topic::content);
    }
    return true;
}

bool QtUserDefaults::write(const std::string& text) {
    if (auto invalid = m_content.invalidLines(); !invalid.empty() && m_keptFor != invalid) {
        if (const auto error = SetAside::keep(m_files, m_file, m_text)) {
            report(FileIncident::Kind::notWritten, "could not keep a copy: " + error.message());
            return false;
        }
        report(FileIncident::Kind::undecodable, "some of its lines are invalid",
               SetAside::newestCopy(m_file));
        m_keptFor = std::move(invalid);
    }
    const auto error = m_files.writeAtomically(m_file, text);
    if (error) {
        report(isReplaced(error) ? FileIncident::Kind::notFlushed : FileIncident::Kind::notWritten,
               error.message());
        if (!isReplaced(error)) {
            return false;
        }
    } else {
        m_incidents.clear(m_file, FileIncident::Topic::writing);
    }
    m_text = text;
    m_content = SettingsText::parse(m_text);
    watch();
    m_notify.start();
    return true;
}

void QtUserDefaults::report(FileIncident::Kind kind, std::string reason, std::filesystem::path copy) {
    m_incidents.report({.file = m_file, .kind = kind, .reason = std::move(reason), .copy = std::move(copy)});
}

void QtUserDefaults::watch() {
    const auto target = linkTarget(m_file);
    for (const auto& path : {m_file.parent_path(), target.parent_path(), target}) {
        const auto name = qtPath(path);
        std::error_code ignored;
        if (!m_watcher.files().contains(name) && !m_watcher.directories().contains(name) &&
            std::filesystem::exists(path, ignored)) {
            m_watcher.addPath(name);
        }
    }
}

} // namespace vantrel
