// Measures loading and saving every store with a heavy user's data (100 desks of 60 windows, full logs) and
// with ten times that, compared with parsing and dumping the same bytes.
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "benchmarks/HeavyUser.h"
#include "benchmarks/StoreMeasuring.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <nlohmann/json.hpp>

namespace vantrel {
namespace {

using bench::inTurns;

template <typename File>
class Kept {
public:
    explicit Kept(File file) : m_file(std::move(file)), m_isRight(save() && open().load() == m_file) {}

    // Whether the data was read back exactly as written.
    [[nodiscard]] bool isRight() const { return m_isRight; }

    [[nodiscard]] bool save() { return open().write(m_file); }

    // Opens a new store each time, as a store reads its file only once.
    void load() {
        auto store = open();
        benchmark::DoNotOptimize(store.load());
    }

    [[nodiscard]] std::string bytes() { return m_files.read(m_folder.path() / "store.json").value(); }

private:
    [[nodiscard]] JsonStore<File> open() {
        return JsonStore<File>::open(m_folder.path(), "store.json", m_files).value();
    }

    TemporaryFolder m_folder;
    PosixFileSystem m_files;
    File m_file;
    bool m_isRight;
};

template <typename File>
void load(benchmark::State& state, File (*make)(std::size_t)) {
    Kept<File> kept(make(static_cast<std::size_t>(state.range(0))));
    if (!kept.isRight()) {
        state.SkipWithError("the store differs from what was written");
        return;
    }
    const std::string text = kept.bytes();
    inTurns(
        state, "per_parse", [&] { kept.load(); },
        [&] {
            auto document = nlohmann::json::parse(text);
            benchmark::DoNotOptimize(document);
        });
}

// Flushing to disk takes most of a save and is not part of a dump, so the ratio covers processor and disk
// work together.
template <typename File>
void save(benchmark::State& state, File (*make)(std::size_t)) {
    Kept<File> kept(make(static_cast<std::size_t>(state.range(0))));
    const auto document = nlohmann::json::parse(kept.bytes());
    bool allWritten = kept.isRight();
    inTurns(
        state, "per_dump", [&] { allWritten = kept.save() && allWritten; },
        [&] {
            auto text = document.dump(2);
            benchmark::DoNotOptimize(text);
        });
    if (!allWritten) {
        state.SkipWithError("a write failed");
    }
}

#define STORE(file)                                                                                          \
    BENCHMARK_CAPTURE(load, file, bench::HeavyUser::file)                                                    \
        ->Arg(1)                                                                                             \
        ->Arg(10)                                                                                            \
        ->Unit(benchmark::kMillisecond)                                                                      \
        ->UseManualTime()                                                                                    \
        ->Iterations(5);                                                                                     \
    BENCHMARK_CAPTURE(save, file, bench::HeavyUser::file)                                                    \
        ->Arg(1)                                                                                             \
        ->Arg(10)                                                                                            \
        ->Unit(benchmark::kMillisecond)                                                                      \
        ->UseManualTime()                                                                                    \
        ->Iterations(5)

STORE(layouts);
STORE(scenes);
STORE(stashes);
STORE(restoreLog);
STORE(receipts);
STORE(usage);
STORE(triggers);
STORE(reliability);
STORE(sizeBehavior);

} // namespace
} // namespace vantrel
