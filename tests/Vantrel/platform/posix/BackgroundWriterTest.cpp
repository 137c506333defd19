// The background writer on real threads.
#include "VantrelCore/stores/BackgroundWriter.h"
#include "Vantrel/platform/posix/ThreadBackground.h"

#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <string>

namespace vantrel {
namespace {

// Drops all work: reports are then delivered by finish() alone.
class NoQueue final : public MainQueue {
public:
    void post(std::function<void()> /*work*/) override {}
    std::unique_ptr<ScheduledWork> after(double /*seconds*/, std::function<void()> /*work*/) override {
        return nullptr;
    }
    std::unique_ptr<ScheduledWork> every(double /*seconds*/, std::function<void()> /*work*/) override {
        return nullptr;
    }
};

TEST(BackgroundWriterOnThreads, NeverWritesAFileTwiceAtOnceNorOutOfOrder) {
    constexpr int rounds = 2000;
    NoQueue queue;
    ThreadBackground background;
    BackgroundWriter writer(background, queue);
    struct File {
        std::atomic<int> writing = 0;
        // Not locked: only the writer's order protects it.
        int written = 0;
        int reported = 0;
    };
    std::array<File, 3> files;
    std::atomic<bool> isBroken = false;
    for (int round = 1; round <= rounds; ++round) {
        for (std::size_t i = 0; i < files.size(); ++i) {
            writer.submit(std::to_string(i), [&, &file = files[i], round] {
                isBroken = isBroken || ++file.writing != 1 || file.written >= round;
                file.written = round;
                --file.writing;
                return [&file, round] { file.reported = round; };
            });
        }
        if (round % 7 == 0) {
            const auto i = static_cast<std::size_t>(round) % files.size();
            writer.finish(std::to_string(i));
            EXPECT_EQ(files[i].reported, round);
        }
    }
    writer.finishAll();
    EXPECT_FALSE(isBroken);
    for (const File& file : files) {
        EXPECT_EQ(file.reported, rounds);
    }
}

} // namespace
} // namespace vantrel
