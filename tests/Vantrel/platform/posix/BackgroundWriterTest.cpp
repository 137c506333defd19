// The background writer on real threads.
#include "VantrelCore/stores/BackgroundWriter.h"
#include "Vantrel/platform/posix/ThreadBackground.h"

#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <latch>
#include <memory>
#include <thread>
#include <vector>

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

TEST(BackgroundWriterOnThreads, FinishingAFileWaitsForTheWriteThatHasBegun) {
    NoQueue queue;
    ThreadBackground background;
    BackgroundWriter writer(background, queue);
    std::latch hasBegun(1);
    std::vector<int> written;
    std::vector<int> reported;
    const auto write = [&](int number) {
        written.push_back(number);
        return [&, number] { reported.push_back(number); };
    };
    writer.submit("file", [&] {
        hasBegun.count_down();
        std::this_thread::sleep_for(std::chrono::milliseconds{20});
        return write(1);
    });
    hasBegun.wait();
    writer.submit("file", [&] { return write(2); });
    writer.submit("file", [&] { return write(3); });
    writer.finish("file");
    EXPECT_EQ(written, (std::vector{1, 3}));
    EXPECT_EQ(reported, (std::vector{1, 3}));
}

} // namespace
} // namespace vantrel
