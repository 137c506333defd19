// The user's settings in one file that a person can edit while the program runs; SettingsText tells its form.
#pragma once

#include "Vantrel/platform/qt/SettingsText.h"
#include "VantrelCore/ports/FileSystem.h"
#include "VantrelCore/ports/UserDefaults.h"
#include "VantrelCore/stores/FileIncidents.h"

#include <QFileSystemWatcher>
#include <QTimer>

#include <filesystem>

namespace vantrel {

// Lines that cannot be understood count as absent and are logged; they stay in the file, and before the
// first write to such a file a copy is kept beside it (SetAside). A file that cannot be read at all stays
// where it is and is not written until it can be.
class QtUserDefaults final : public UserDefaults {
public:
    using Log = std::function<void(const std::string&)>;

    // `log` is told what cannot be understood, `incidents` what cannot be read or written. Both outlive it.
    QtUserDefaults(std::filesystem::path file, FileSystem& files, FileIncidents& incidents, Log log);

    [[nodiscard]] std::optional<bool> boolean(std::string_view key) override;
    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) override;
    [[nodiscard]] std::optional<double> number(std::string_view key) override;
    [[nodiscard]] std::optional<std::string> text(std::string_view key) override;
    [[nodiscard]] std::optional<Date> date(std::string_view key) override;
    [[nodiscard]] std::optional<DefaultsData> data(std::string_view key) override;
    bool set(std::string_view key, const DefaultsValue& value) override;
    bool remove(std::string_view key) override;

    // The handler is called from the event loop, once for changes that come together.
    void setChangeHandler(std::function<void()> handler) override;

private:
    // Take over what the file holds now and say whether it could be read; reload tells the handler.
    bool reload();
    bool read();
    // A value that the file can hold, in the file as it was just read.
    bool setPlain(std::string_view key, const DefaultsValue& value);
    bool write(const std::string& text);
    void watch();
    void complain(std::string complaint);
    void report(FileIncident::Kind kind, std::string reason, std::filesystem::path copy = {});

    std::filesystem::path m_file;
    FileSystem& m_files;
    FileIncidents& m_incidents;
    Log m_log;
    std::string m_text;
    SettingsText::Content m_content;
    // What was last logged about the file, so that each fault is told once.
    std::string m_complaint;
    bool m_isUnreadable = false;
    // The complaint for which a copy has been kept aside.
    std::string m_keptFor;
    std::function<void()> m_handler;
    QFileSystemWatcher m_watcher;
    // An editor empties, writes and renames within moments; the file is read when it has rested.
    QTimer m_rested;
    QTimer m_notify;
};

} // namespace vantrel
