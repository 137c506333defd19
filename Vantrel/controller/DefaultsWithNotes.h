// User defaults for systems where the settings are a text file that people edit. Keeps the program's own
// notes in a separate file.
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

// Stores keys with SettingKey::Purpose::note in "notes.json" and passes all others on to `settings`. The
// constructor moves notes that an older version left in `settings`; it removes them there only after writing
// the new file. If either step fails, the next start tries again. "notes.json" takes precedence.
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
