// Measures how pairing saved and live windows of one application scales with their number, by kind of title.
#include "VantrelCore/windows/WindowMatcher.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <string>
#include <vector>

namespace vantrel {
namespace {

using Title = std::string (*)(std::size_t);

void matchWindows(benchmark::State& state, Title savedTitle, Title currentTitle) {
    const auto count = static_cast<std::size_t>(state.range(0));
    std::vector<std::string> texts;
    texts.reserve(2 * count);
    std::vector<WindowIdentity> saved;
    std::vector<WindowIdentity> current;
    for (std::size_t i = 0; i < count; ++i) {
        // Live windows are stacked in reverse order.
        const auto order = static_cast<std::int64_t>(i);
        saved.emplace_back("org.example.editor", texts.emplace_back(savedTitle(i)), order);
        current.emplace_back("org.example.editor", texts.emplace_back(currentTitle(i)), -order);
    }
    for ([[maybe_unused]] auto _ : state) {
        auto result = WindowMatcher::match(saved, current);
        benchmark::DoNotOptimize(result);
    }
    state.SetComplexityN(state.range(0));
}

std::string document(std::size_t i) {
    return fmt::format("{:06} Document.txt", i);
}

std::string editedDocument(std::size_t i) {
    return document(i) + " - Edited";
}

std::string accented(std::size_t i) {
    return fmt::format("{:06} Übersicht", i);
}

std::string editedAccented(std::size_t i) {
    return accented(i) + " - geändert";
}

std::string unrelated(std::size_t i) {
    return fmt::format("{:06} Picture.png", 1'000'000 - i);
}

std::string sharingBeginning(std::size_t i) {
    return fmt::format("Untitled document {}", i);
}

std::string sharingBeginningLive(std::size_t i) {
    return fmt::format("Untitled document {} *", i);
}

// Half of them are a prefix of every live title, half nearly are.
std::string almostSharing(std::size_t i) {
    return fmt::format("Untitle{}", i % 2 == 0 ? "d 1" : "d");
}

std::string equalTitle(std::size_t) {
    return "Untitled document";
}

std::string emptyTitle(std::size_t) {
    return "";
}

#define MATCH(name, saved, current)                                                                          \
    BENCHMARK_CAPTURE(matchWindows, name, saved, current)                                                    \
        ->RangeMultiplier(10)                                                                                \
        ->Range(100, 10'000)                                                                                 \
        ->Unit(benchmark::kMillisecond)                                                                      \
        ->Complexity()

MATCH(distinct, document, document);
MATCH(nearOnly, document, editedDocument);
MATCH(nearOnlyAccented, accented, editedAccented);
MATCH(orderOnly, document, unrelated);
MATCH(allSharingABeginning, sharingBeginning, sharingBeginningLive);
MATCH(almostSharing, almostSharing, sharingBeginning);
MATCH(allEqual, equalTitle, equalTitle);
MATCH(allEmpty, emptyTitle, emptyTitle);

} // namespace
} // namespace vantrel
