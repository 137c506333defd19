#include "benchmarks/desk/Race.h"

#include <algorithm>
#include <chrono>

namespace vantrel::bench {

double Standing::minimum() const {
    return times.empty() ? 0 : std::ranges::min(times);
}

double Standing::median() const {
    std::vector<double> sorted = times;
    std::ranges::sort(sorted);
    return sorted.empty() ? 0 : sorted[sorted.size() / 2];
}

std::vector<Standing> race(CrowdedDesk& desk, XcbFloor& floor, const std::vector<Contestant>& contestants,
                           std::size_t rounds) {
    std::vector<Standing> standings;
    for (const auto& contestant : contestants) {
        standings.push_back({.name = contestant.name, .promise = contestant.promise, .times = {}});
    }
    std::size_t arrangement = 0;
    std::ignore = floor.restore(desk.arrangements().at(arrangement));
    for (std::size_t round = 0; round <= rounds; ++round) {
        for (std::size_t turn = 0; turn < contestants.size(); ++turn) {
            const std::size_t index = round % 2 == 0 ? turn : contestants.size() - 1 - turn;
            const Contestant& contestant = contestants[index];
            if (round > contestant.rounds) {
                continue;
            }
            arrangement = 1 - arrangement;
            const Arrangement& target = desk.arrangements().at(arrangement);
            floor.awaitWindowManager();
            const auto start = std::chrono::steady_clock::now();
            const bool saysArrived = contestant.move(arrangement);
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
            if (contestant.promise == Promise::hoped) {
                floor.awaitWindowManager();
            }
            const bool isRight = desk.arrived(target) == target.size();
            Standing& standing = standings[index];
            standing.failedRounds += saysArrived ? 0 : 1;
            standing.wrongRounds += saysArrived && !isRight ? 1 : 0;
            if (!isRight) {
                // Every contestant starts with the windows elsewhere.
                std::ignore = floor.restore(target);
            }
            if (round > 0) {
                standing.times.push_back(time.count());
            }
        }
    }
    return standings;
}

} // namespace vantrel::bench
