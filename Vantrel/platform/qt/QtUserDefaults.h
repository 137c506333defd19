// The user's settings, in a file that can be edited while the program runs. See SettingsText for the format.
#pragma once

#include "Vantrel/platform/qt/SettingsText.h"
#include "VantrelCore/ports/FileSystem.h"
#include "VantrelCore/ports/UserDefaults.h"
#include "VantrelCore/stores/FileIncidents.h"

#include <QFileSystemWatcher>
#include <QTimer>

#include <filesystem>

namespace vantrel {

// Invalid lines are ignored but stay in the file. Before the first write to such a file, a copy is kept
// beside it (SetAside). A file that cannot be read stays in place and is not written until it can be read.
class QtUserDefaults final : public UserDefaults {
public:
    using Log = std::function<void(const std::string&)>;

    // Reports a missing folder to `log` and failed reads and writes to `incidents`. `files` and `incidents`
    // must outlive it.
    QtUserDefaults(std::filesystem::path file, FileSystem& files, FileIncidents& incidents, Log log);

    [[nodiscard]] std::optional<bool> boolean(std::string_view key) override;
    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) override;
    [[nodiscard]] std::optional<double> number(std::string_view key) override;
    [[nodiscard]] std::optional<std::string> text(std::string_view key) override;
    [[nodiscard]] std::optional<Date> date(std::string_view key) override;
    [[nodiscard]] std::optional<DefaultsData> data(std::string_view key) override;
    bool set(std::string_view key, const DefaultsValue& value) override;
    bool remove(std::string_view key) override;
    [[nodiscard]] std::optional<SettingsFile> file() override {
        return SettingsFile{m_file, m_content.lines};
    }

    // Calls the handler from the event loop, once for changes made together.
    void setChangeHandler(std::function<void()> handler) override;

private:
    // Reads the file and returns whether that succeeded. reload() also notifies the handler of changes.
    bool reload();
    bool read();
    // Sets a value that the file format supports. Call after reload().
    bool setPlain(std::string_view key, const DefaultsValue& value);
    bool write(const std::string& text);
    void watch();
    void report(FileIncident::Kind kind, std::string reason, std::filesystem::path copy = {});

    std::filesystem::path m_file;
    FileSystem& m_files;
    FileIncidents& m_incidents;
    Log m_log;
    std::string m_text;
    SettingsText::Content m_content;
    bool m_isUnreadable = false;
    // The invalid lines of which a copy has been kept.
    std::vector<SettingsLine> m_keptFor;
    std::function<void()> m_handler;
    QFileSystemWatcher m_watcher;
    // Editors truncate, write and rename in quick succession, so wait for a pause before reading.
    QTimer m_reloadDelay;
    QTimer m_notify;
};

} // namespace vantrel
