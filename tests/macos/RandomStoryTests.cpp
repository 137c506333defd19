// The controller's random stories with the Mac's adapters between the controller and the simulated desk.
#include "tests/Vantrel/controller/RandomStory.h"
#include "tests/macos/AccessibleDesk.h"
#include "tests/macos/PlatformTest.h"

#include <cstdlib>
#include <fmt/format.h>

namespace vantrel::fake {
namespace {

std::uint64_t number(const char* environmentVariable, std::uint64_t otherwise) {
    const char* const text = std::getenv(environmentVariable);
    return text != nullptr ? std::strtoull(text, nullptr, 10) : otherwise;
}

struct MacRandomStories : PlatformTest {};

// VANTREL_SEED=17 tells the story of that seed alone; VANTREL_SEEDS=500 tells as many.
TEST_F(MacRandomStories, TheLawsHoldWhateverHappens) {
    const std::uint64_t only = number("VANTREL_SEED", 0);
    const std::uint64_t first = only != 0 ? only : 1;
    const std::uint64_t last = only != 0 ? only : number("VANTREL_SEEDS", 40);
    for (std::uint64_t seed = first; seed <= last; ++seed) {
        simulated::RandomStory story(seed);
        {
            AccessibleDesk desk(story.story());
            story.tell();
            story.story().controller.reset();
            story.story().time.endJobs();
        }
        ASSERT_TRUE(story.breaches().empty())
            << "seed " << seed << " (VANTREL_SEED=" << seed << " replays it)\n"
            << fmt::format("{}\n", fmt::join(story.breaches(), "\n")) << story.transcript();
        resetPlatform();
    }
    fmt::print("{} seeds told\n", last - first + 1);
}

} // namespace
} // namespace vantrel::fake
