// The pattern common to all stores: one JSON file, read on first use and then cached, written as a whole,
// atomically and durably. A file that cannot be read or decoded is moved aside under its name with ".corrupt"
// appended (SetAside), and the store starts empty.
#pragma once

#include "VantrelCore/model/AgeLoss.h"
#include "VantrelCore/stores/JsonFile.h"
#include "VantrelCore/stores/Saving.h"
#include "VantrelCore/stores/StoreFiles.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>
#include <tuple>
#include <type_traits>
#include <utility>

namespace vantrel {

// `Record` is the file's content: a struct with to_json and from_json whose default value is an empty store.
// If it has `std::int64_t version`, defaulting to the current schema version, every write stamps that version
// and its from_json requires "version". Not locked: all calls come from the main thread. Only what Saving and
// read() say happens in the background.
template <typename Record>
class JsonStore {
public:
    // Drops expired data from a record right after reading.
    using AfterReading = std::function<AgeLoss(Record&)>;

    // Creates the directory if missing; reads nothing yet.
    [[nodiscard]] static std::expected<JsonStore, std::error_code>
    open(const std::filesystem::path& directory, std::string_view fileName, const StoreFiles& files,
         AfterReading afterReading = {}) {
        if (const std::error_code error = files.files().createDirectories(directory)) {
            return std::unexpected(error);
        }
        return JsonStore(std::make_shared<State>(directory / fileName, files, std::move(afterReading)));
    }

    // The same for a class that owns a JsonStore and is constructed from it.
    template <typename Store>
    [[nodiscard]] static std::expected<Store, std::error_code>
    openAs(const std::filesystem::path& directory, std::string_view fileName, const StoreFiles& files,
           AfterReading afterReading = {}) {
        auto store = open(directory, fileName, files, std::move(afterReading));
        if (!store) {
            return std::unexpected(store.error());
        }
        return Store(std::move(*store));
    }

    [[nodiscard]] const std::filesystem::path& fileURL() const { return m_state->file.path(); }

    // The content, from the cache or else from disk. With a background writer the disk is asked only once;
    // see read(). The reference is valid until the next member call.
    [[nodiscard]] const Record& load() {
        State& state = *m_state;
        if (state.replacementsSeen != state.replacements()) {
            finishWriting();
            state.cache.reset();
            state.isRead = false;
        }
        if (!state.cache && !(state.isRead && state.files.writer() != nullptr)) {
            finishWriting();
            state.isRead = true;
            state.replacementsSeen = state.replacements();
            state.cache = state.written = state.readRecord();
            state.tell(state.file.takeNews());
        }
        static const Record empty{};
        return state.cache ? *state.cache : empty;
    }

    // Reads the file unless its content is in the cache: at once the first time, later in the background.
    void read() {
        BackgroundWriter* const writer = m_state->files.writer();
        if (!m_state->isRead || writer == nullptr) {
            std::ignore = load();
        } else if (!m_state->cache) {
            writer->submit(fileURL(), [state = m_state] {
                return [state, record = state->readRecord(), news = state->file.takeNews()] {
                    state->tell(news);
                    if (!state->cache) {
                        state->cache = state->written = record;
                    }
                };
            });
        }
    }

    // Replaces the whole file, stamped with the current schema version. False on failure; file and cache are
    // then unchanged.
    [[nodiscard]] bool write(Record record, const Saving& saving = {}) {
        if constexpr (isVersioned) {
            record.version = Record{}.version;
        }
        auto content = std::make_shared<const Record>(std::move(record));
        if (saving.isLater() && m_state->files.writer() != nullptr) {
            writeLater(std::move(content), saving);
            return true;
        }
        finishWriting();
        const bool isWritten = m_state->writeRecord(*content);
        if (isWritten) {
            m_state->cache = m_state->written = std::move(content);
        }
        m_state->tell(m_state->file.takeNews());
        saving.tell(isWritten);
        return isWritten || saving.isLater();
    }

    // Loads the record, applies `change` to a copy, and writes the copy. A change that drops expired data
    // returns how much: if it was most of the data, a copy of the file is kept before writing.
    template <typename Change>
    [[nodiscard]] bool update(Change&& change, const Saving& saving = {}) {
        if (!saving.isLater()) {
            finishWriting();
        }
        Record record = load();
        if constexpr (std::is_same_v<std::invoke_result_t<Change, Record&>, AgeLoss>) {
            m_state->note(std::forward<Change>(change)(record));
        } else {
            std::forward<Change>(change)(record);
        }
        return write(std::move(record), saving);
    }

private:
    using Content = std::shared_ptr<const Record>;

    // Shared with writes in the background, which use only `file`; the main thread then keeps away from it
    // until they have finished.
    struct State {
        State(std::filesystem::path path, const StoreFiles& storeFiles, AfterReading age)
            : files(storeFiles), file(std::move(path), schemaVersion(), files.files()),
              afterReading(std::move(age)) {}

        [[nodiscard]] Content readRecord() {
            Record record;
            if (!file.read([&](const nlohmann::json& document) { from_json(document, record); },
                           [&](nlohmann::json& document) { to_json(document, record); })) {
                return nullptr;
            }
            if (afterReading) {
                note(afterReading(record));
            }
            return std::make_shared<const Record>(std::move(record));
        }

        [[nodiscard]] bool writeRecord(const Record& record) {
            return file.write([&](nlohmann::json& document) { to_json(document, record); });
        }

        void note(const AgeLoss& loss) {
            if (loss.isMost()) {
                file.keepExpired();
            }
        }

        // How often the user has replaced the file.
        [[nodiscard]] std::size_t replacements() const {
            return files.incidents() != nullptr ? files.incidents()->replacements(file.path()) : 0;
        }

        void tell(const JsonFile::News& news) const {
            for (const auto& item : news) {
                if (files.incidents() != nullptr) {
                    item(*files.incidents());
                }
            }
        }

        // A write in the background has ended.
        void settle(std::uint64_t write, const Content& content, bool isWritten) {
            if (isWritten) {
                written = content;
            } else if (write == lastWrite) {
                cache = written;
            }
            while (!waiting.empty() && waiting.front().first <= write) {
                const Saving saving = std::move(waiting.front().second);
                waiting.pop_front();
                saving.tell(isWritten);
            }
        }

        StoreFiles files;
        JsonFile file;
        AfterReading afterReading;
        // What was last read, or written by the store's user.
        Content cache;
        // What was last read from the file or written to it.
        Content written;
        bool isRead = false;
        std::size_t replacementsSeen = 0;
        // Writes in the background, by number. A newer one includes the older ones.
        std::uint64_t lastWrite = 0;
        std::deque<std::pair<std::uint64_t, Saving>> waiting;
    };

    void writeLater(Content content, const Saving& saving) {
        State& state = *m_state;
        const std::uint64_t write = ++state.lastWrite;
        state.waiting.emplace_back(write, saving);
        state.cache = content;
        state.files.writer()->submit(
            fileURL(), [shared = m_state, write, content = std::move(content)]() -> BackgroundWriter::Report {
                const bool isWritten = shared->writeRecord(*content);
                return [shared, write, content, isWritten, news = shared->file.takeNews()] {
                    shared->tell(news);
                    shared->settle(write, content, isWritten);
                };
            });
    }

    void finishWriting() {
        if (BackgroundWriter* const writer = m_state->files.writer()) {
            writer->finish(fileURL());
        }
    }

    static constexpr bool isVersioned = requires(Record record) { record.version; };

    [[nodiscard]] static std::optional<std::int64_t> schemaVersion() {
        if constexpr (isVersioned) {
            return Record{}.version;
        } else {
            return std::nullopt;
        }
    }

    explicit JsonStore(std::shared_ptr<State> state) : m_state(std::move(state)) {}

    // Never null.
    std::shared_ptr<State> m_state;
};

} // namespace vantrel
