// The user's settings where they are a file that people edit: the program's own notes are in a file of their
// own.
#pragma once

#include "VantrelCore/ports/MainQueue.h"
#include "VantrelCore/ports/UserDefaults.h"
#include "VantrelCore/stores/ProgramNotesStore.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace vantrel {

// Keeps the keys with SettingKey::Purpose::note in "notes.json" and leaves all others to `settings`. Notes
// that an older version has left in `settings` are moved when it is constructed: they are removed there once
// the new file has been written, and if either fails, the next start tries again. What is in "notes.json"
// takes precedence.
class DefaultsWithNotes final : public UserDefaults {
public:
    // `settings`, `files` and `queue` must outlive it.
    DefaultsWithNotes(UserDefaults& settings, const std::filesystem::path& directory, const StoreFiles& files,
                      MainQueue& queue);

    [[nodiscard]] std::optional<bool> boolean(std::string_view key) override;
    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) override;
    [[nodiscard]] std::optional<double> number(std::string_view key) override;
    [[nodiscard]] std::optional<std::string> text(std::string_view key) override;
    [[nodiscard]] std::optional<Date> date(std::string_view key) override;
    [[nodiscard]] std::optional<DefaultsData> data(std::string_view key) override;
    bool set(std::string_view key, const DefaultsValue& value) override;
    bool remove(std::string_view key) override;
    [[nodiscard]] std::optional<SettingsFile> file() override { return m_settings.file(); }
    void setChangeHandler(std::function<void()> handler) override;

private:
    void takeOver();
    // Null if the key is not a note, or the note is not in the file.
    [[nodiscard]] const nlohmann::json* note(std::string_view key);
    void notifySoon();

    UserDefaults& m_settings;
    MainQueue& m_queue;
    // None if the folder cannot be used; then everything stays in `m_settings`.
    std::optional<ProgramNotesStore> m_notes;
    std::shared_ptr<std::function<void()>> m_handler = std::make_shared<std::function<void()>>();
};

} // namespace vantrel
