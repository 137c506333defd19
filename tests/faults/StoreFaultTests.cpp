// Every system call of every load and save of every store fails in every way: what was saved is still there,
// and the failure is reported. VANTREL_FAULTS=full tries the whole table.
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "Vantrel/platform/qt/QtUserDefaults.h"
#include "VantrelCore/stores/AppReliabilityStore.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "VantrelCore/stores/ProgramNotesStore.h"
#include "VantrelCore/stores/RestoreLogStore.h"
#include "VantrelCore/stores/RestoreReceiptsStore.h"
#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/stores/StashStore.h"
#include "VantrelCore/stores/TriggerStore.h"
#include "VantrelCore/stores/UsageStatsStore.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"
#include "tests/faults/FaultySystem.h"

#include <QCoreApplication>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <nlohmann/json.hpp>

namespace vantrel {
namespace {

using faults::Fault;
using nlohmann::json;

constexpr auto forEver = std::numeric_limits<std::size_t>::max();

bool isFull() {
    const char* const value = std::getenv("VANTREL_FAULTS");
    return value != nullptr && std::string_view(value) == "full";
}

// Any store, with its records as JSON.
class Store {
public:
    virtual ~Store() = default;
    virtual json load() = 0;
    virtual bool save(const json& record) = 0;
};

template <typename Record>
class StoreOf final : public Store {
public:
    StoreOf(const std::filesystem::path& folder, const std::string& name, const StoreFiles& files)
        : m_store(JsonStore<Record>::open(folder, name, files).value()) {}

    json load() override {
        json result;
        to_json(result, m_store.load());
        return result;
    }

    bool save(const json& record) override {
        Record decoded;
        from_json(record, decoded);
        return m_store.write(std::move(decoded));
    }

private:
    JsonStore<Record> m_store;
};

// Two settings, one of which is changed. They are read on first use.
class SettingsFile final : public Store {
public:
    SettingsFile(std::filesystem::path file, const StoreFiles& files)
        : m_file(std::move(file)), m_files(files) {}

    json load() override {
        json result = json::object();
        for (const char* const each : {key, "untouched"}) {
            if (const auto value = defaults().number(each)) {
                result[each] = *value;
            }
        }
        return result;
    }

    bool save(const json& record) override { return defaults().set(key, record.at(key).get<double>()); }

private:
    static constexpr const char* key = "settleDelay";

    QtUserDefaults& defaults() {
        static int argumentCount = 0;
        static const QCoreApplication application(argumentCount, nullptr);
        if (!m_defaults) {
            m_defaults.emplace(m_file, m_files.files(), *m_files.incidents(), [](const std::string&) {});
        }
        return *m_defaults;
    }

    std::filesystem::path m_file;
    StoreFiles m_files;
    std::optional<QtUserDefaults> m_defaults;
};

struct Kind {
    std::string file;
    std::function<std::unique_ptr<Store>(const std::filesystem::path&, const std::string&, const StoreFiles&)>
        open;
};

template <typename Record>
Kind kindOf(const std::string& file) {
    return {file, [](const auto& folder, const auto& name, const auto& files) -> std::unique_ptr<Store> {
                return std::make_unique<StoreOf<Record>>(folder, name, files);
            }};
}

constexpr const char* settings = "settings.conf";

const std::vector<Kind>& kinds() {
    static const std::vector<Kind> all{
        kindOf<LayoutStore::StoreFile>("layouts.json"),
        kindOf<SceneStore::StoreFile>("scenes.json"),
        kindOf<StashStore::StoreFile>("stashes.json"),
        kindOf<TriggerStore::StoreFile>("triggers.json"),
        kindOf<RestoreLogStore::StoreFile>("restore-log.json"),
        kindOf<RestoreReceipts>("receipts.json"),
        kindOf<UsageStats>("usage.json"),
        kindOf<ProgramNotes>("notes.json"),
        kindOf<AppReliabilityStore::StoreFile>("app-reliability.json"),
        kindOf<AppSizeBehaviorStore::StoreFile>("app-size-behavior.json"),
        {settings,
         [](const auto& folder, const auto& name, const auto& files) -> std::unique_ptr<Store> {
             return std::make_unique<SettingsFile>(folder / name, files);
         }},
    };
    return all;
}

// Changes a record: adds one to its first number.
bool increment(json& value) {
    if (value.is_number_integer()) {
        value = value.get<std::int64_t>() + 1;
        return true;
    }
    if (value.is_number()) {
        value = value.get<double>() + 1;
        return true;
    }
    if (value.is_object()) {
        return std::ranges::any_of(value.items(), [](const auto& item) {
            return item.key() != "version" && increment(item.value());
        });
    }
    return value.is_array() && std::ranges::any_of(value, increment);
}

// One run of the program: a store and its messages.
struct Session {
    Session(const std::filesystem::path& folder, const Kind& kind)
        : store(kind.open(folder, kind.file, {files, &incidents})) {}

    std::vector<std::string> messages;
    PosixFileSystem files;
    FileIncidents incidents{[this](const std::string& message) { messages.push_back(message); }};
    std::unique_ptr<Store> store;
};

class StoreFaults : public testing::TestWithParam<Kind> {
protected:
    enum class Operation { load, save, update };

    void SetUp() override {
        const auto& name = GetParam().file;
        Session session(m_folder.path(), GetParam());
        if (name == settings) {
            putText(m_file, "settleDelay = 1.5\nuntouched = 3\n");
        } else {
            const auto seed = std::filesystem::path(VANTREL_STORE_FILES) / name;
            ASSERT_TRUE(session.store->save(json::parse(textOf(seed))));
        }
        m_text = textOf(m_file);
        m_saved = session.store->load();
        m_next = m_saved;
        ASSERT_TRUE(increment(m_next));
    }

    // The record as another run of the program reads it.
    json fresh() { return Session(m_folder.path(), GetParam()).store->load(); }

    // Whether the saved text is in a copy that a message names.
    bool isInReportedCopy(const Session& session) {
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.path())) {
            const auto name = entry.path().filename().string();
            const auto names = [&](const std::string& line) { return line.find(name) != std::string::npos; };
            if (textOf(entry.path()) == m_text && std::ranges::any_of(session.messages, names)) {
                return true;
            }
        }
        return false;
    }

    // Returns the number of calls.
    std::size_t play(Operation operation, const Fault& fault) {
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.path())) {
            std::filesystem::remove(entry.path());
        }
        putText(m_file, m_text);
        Session session(m_folder.path(), GetParam());
        if (operation == Operation::save) {
            std::ignore = session.store->load();
        }
        json seen = m_saved;
        bool isSaved = false;
        faults::arm(m_folder.path().string(), fault);
        if (operation != Operation::save) {
            seen = session.store->load();
        }
        if (operation != Operation::load) {
            isSaved = session.store->save(m_next);
        }
        const auto calls = faults::disarm();

        const bool isReported = !session.messages.empty();
        const auto fail = [&](const char* what) {
            ADD_FAILURE() << what << ": call " << fault.firstCall << ", " << fault.count << " times, "
                          << (fault.error == 0 ? "half of it" : std::strerror(fault.error))
                          << fmt::format("\ncalls: {}\nmessages: {}\nfiles:", fmt::join(calls, " "),
                                         fmt::join(session.messages, " | "))
                          << testing::PrintToString(m_folder.names());
        };
        if ((seen != m_saved || (operation != Operation::load && !isSaved)) && !isReported) {
            fail("not reported");
        }
        // Settings are read again before each change.
        const bool readsAgain = GetParam().file == settings;
        if (seen != m_saved && isSaved && !readsAgain && !isInReportedCopy(session)) {
            fail("lost what could not be read");
        }
        if (fresh() != (isSaved ? m_next : m_saved)) {
            fail(isSaved ? "lost what was saved" : "lost what was there");
        }
        if (!isSaved && !readsAgain && session.store->load() != m_saved) {
            fail("not read again in the same run");
        }
        if (!session.store->save(m_next) || fresh() != m_next) {
            fail("not saved after the fault");
        }
        return calls.size();
    }

    TemporaryFolder m_folder;
    std::filesystem::path m_file = m_folder.path() / GetParam().file;
    // What the file contains first, as text and as a record, and what is saved next.
    std::string m_text;
    json m_saved;
    json m_next;
};

void PrintTo(const Kind& kind, std::ostream* stream) {
    *stream << kind.file;
}

INSTANTIATE_TEST_SUITE_P(Each, StoreFaults, testing::ValuesIn(kinds()), [](const auto& kind) {
    std::string name = std::filesystem::path(kind.param.file).stem();
    std::ranges::replace(name, '-', '_');
    return name;
});

TEST_P(StoreFaults, LoseNothingAndAreReported) {
    std::vector<int> errors{0, EIO, EMFILE, ENOSPC, EINTR};
    std::vector<std::size_t> counts{1, forEver};
    if (isFull()) {
        errors.insert(errors.end(), {EACCES, EAGAIN, EBUSY, EDQUOT, ENFILE, ENOMEM, EPERM, EROFS, ESTALE});
        counts.insert(counts.end(), {2, 3});
    }
    std::size_t cases = 0;
    for (const auto operation : {Operation::load, Operation::save, Operation::update}) {
        const std::size_t calls = play(operation, {});
        ASSERT_GT(calls, 3U);
        for (std::size_t call = 0; call < calls; ++call) {
            for (const int error : errors) {
                for (const auto count : counts) {
                    // The program rightly repeats interrupted calls for ever.
                    if (!(error == EINTR && count == forEver)) {
                        std::ignore = play(operation, {call, count, error});
                        ++cases;
                    }
                }
            }
        }
    }
    RecordProperty("cases", std::to_string(cases));
    fmt::print("{} cases\n", cases);
}

} // namespace
} // namespace vantrel
