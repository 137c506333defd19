#include "tests/Vantrel/controller/RandomStory.h"

#include <algorithm>
#include <cstdlib>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <optional>

namespace vantrel::simulated {
namespace {

std::optional<std::uint64_t> number(const char* environmentVariable) {
    const char* text = std::getenv(environmentVariable);
    return text != nullptr ? std::optional(std::strtoull(text, nullptr, 10)) : std::nullopt;
}

// VANTREL_SEED=17 tells the story of that seed alone; VANTREL_SEEDS=10000 tells as many.
void expectNoBreach(RandomStory& story, std::uint64_t seed) {
    ASSERT_TRUE(story.breaches().empty())
        << "seed " << seed << " (VANTREL_SEED=" << seed << " replays it)\n"
        << fmt::format("{}\n", fmt::join(story.breaches(), "\n")) << story.transcript();
}

TEST(RandomStories, TheLawsHoldWhateverHappens) {
    const auto only = number("VANTREL_SEED");
    const std::uint64_t first = only.value_or(1);
    const std::uint64_t last =
        only.value_or(std::max<std::uint64_t>(number("VANTREL_SEEDS").value_or(300), 1));
    for (std::uint64_t seed = first; seed <= last; ++seed) {
        RandomStory story(seed);
        story.tell();
        ASSERT_NO_FATAL_FAILURE(expectNoBreach(story, seed));
    }
    fmt::print("{} seeds told\n", last - first + 1);
}

TEST(RandomStories, TheLawsHoldForAWeekOfDockings) {
    const std::uint64_t seed = number("VANTREL_SEED").value_or(1);
    RandomStory story(seed);
    story.tellWeek();
    expectNoBreach(story, seed);
}

TEST(RandomStories, ASeedTellsTheSameStoryEveryTime) {
    const auto told = [] {
        RandomStory story(7);
        story.tell();
        return story.transcript();
    };
    EXPECT_EQ(told(), told());
}

} // namespace
} // namespace vantrel::simulated
