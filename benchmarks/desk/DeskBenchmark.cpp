// Measures capturing and restoring a crowded desk, compared with the minimum that the X server and the window
// manager need and with tools that scripts use: vantrel_desk_benchmark [ROUNDS].
//
// Exits with 1 if one of our captures or restores was wrong, never because of a figure.
#include "benchmarks/TextTable.h"
#include "benchmarks/desk/DistantServer.h"
#include "benchmarks/desk/MeasuredDesk.h"
#include "benchmarks/desk/ProcessorTime.h"
#include "benchmarks/desk/Race.h"
#include "benchmarks/desk/ScriptedPeers.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <fmt/format.h>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace vantrel::bench {

namespace {

constexpr std::size_t defaultRounds = 12;
// A capture is short, so it is measured more often.
constexpr std::size_t capturesPerRound = 5;
// --sync takes many times as long as everything else together.
constexpr std::size_t waitingPeerRounds = 2;

constexpr const char* floorName = "floor";
constexpr const char* oursName = "ours";
constexpr const char* oursWithCaptureName = "ours with its capture";
constexpr const char* wmctrlName = "wmctrl loop";
constexpr const char* exitName = "xdotool chain, until it exits";
constexpr const char* blindName = "xdotool chain, until all is done";
constexpr const char* waitingName = "xdotool chain, --sync";

struct Ratio {
    std::string what;
    double value = 0;
    double target = 0;

    [[nodiscard]] std::string verdict() const { return value <= target ? "met" : "MISSED"; }
};

struct Findings {
    std::vector<Ratio> ratios;
    // Sentences.
    std::vector<std::string> mistakes;
};

enum class Rivals : std::uint8_t { none, all };

struct Scenario {
    Crowd crowd;
    Rivals rivals = Rivals::all;

    [[nodiscard]] std::string name() const {
        return fmt::format("{} windows of {} {}", crowd.windows(), crowd.applications,
                           crowd.applications == 1 ? "application" : "applications");
    }
};

template <typename Work>
double secondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

bool isComplete(const std::vector<LiveWindow>& captured, const Arrangement& arrangement) {
    return captured.size() == arrangement.size() &&
           std::ranges::all_of(arrangement, [&](const Placement& placement) {
               return std::ranges::any_of(captured, [&](const LiveWindow& window) {
                   return window.record.frame == placement.frame;
               });
           });
}

// How many round trips `work` takes on a distant server. The first run is not counted, as it marks windows
// and learns applications.
template <typename Work>
long roundTripsOf(Work work) {
    work();
    double least = std::numeric_limits<double>::max();
    for (int i = 0; i < 3; ++i) {
        least = std::min(least, secondsOf(work));
    }
    return DistantServer::roundTrips(least);
}

void measureCapture(CrowdedDesk& desk, XcbFloor& floor, MeasuredDesk& ours, const Scenario& scenario,
                    std::size_t rounds, TextTable& table, Findings& findings) {
    const Arrangement& arrangement = desk.arrangements()[0];
    const std::size_t captures = rounds * capturesPerRound;
    std::vector<double> floorTimes;
    std::vector<double> ourTimes;
    double ownProcessor = 0;
    double server = 0;
    std::size_t incomplete = 0;
    for (std::size_t i = 0; i < captures; ++i) {
        std::size_t seen = 0;
        floorTimes.push_back(secondsOf([&] { seen = floor.capture().size(); }));
        const double ownBefore = ownProcessorTime();
        const double serverBefore = serverProcessorTime(desk.display());
        std::vector<LiveWindow> captured;
        ourTimes.push_back(secondsOf([&] { captured = ours.capture(); }));
        ownProcessor += ownProcessorTime() - ownBefore;
        server += serverProcessorTime(desk.display()) - serverBefore;
        incomplete += seen == arrangement.size() && isComplete(captured, arrangement) ? 0 : 1;
    }
    if (incomplete > 0) {
        findings.mistakes.push_back(
            fmt::format("{}: {} of {} captures were incomplete.", scenario.name(), incomplete, captures));
    }
    const DistantServer farForFloor(desk.display());
    const DistantServer farForOurs(desk.display());
    XcbFloor farFloor(farForFloor.display());
    MeasuredDesk farDesk(farForOurs.display());
    const Ratio ratio{.what = "capture of " + scenario.name() + " / floor",
                      .value = std::ranges::min(ourTimes) / std::ranges::min(floorTimes),
                      .target = 1.5};
    const Ratio roundTrips{.what = "round trips of a capture of " + scenario.name(),
                           .value =
                               static_cast<double>(roundTripsOf([&] { std::ignore = farDesk.capture(); })),
                           .target = 2};
    table.add({scenario.name(), duration(std::ranges::min(floorTimes)), duration(std::ranges::min(ourTimes)),
               fmt::format("{:.2f}×", ratio.value), "≤ 1.50×", ratio.verdict(),
               fmt::format("{} / {:.0f}", roundTripsOf([&] { std::ignore = farFloor.capture(); }),
                           roundTrips.value),
               duration(ownProcessor / static_cast<double>(captures)),
               duration(server / static_cast<double>(captures))});
    findings.ratios.push_back(ratio);
    findings.ratios.push_back(roundTrips);
}

std::vector<Contestant> contestants(CrowdedDesk& desk, XcbFloor& floor, MeasuredDesk& ours,
                                    std::vector<LiveWindow>& captured, const Scenario& scenario) {
    std::vector<Contestant> result;
    const auto& arrangements = desk.arrangements();
    result.push_back(
        {.name = floorName, .move = [&](std::size_t i) { return floor.restore(arrangements.at(i)); }});
    result.push_back({.name = oursName, .move = [&](std::size_t i) { return ours.restore(i, captured); }});
    result.push_back({.name = oursWithCaptureName,
                      .move = [&](std::size_t i) { return ours.restore(i, ours.capture()); }});
    if (scenario.rivals == Rivals::none) {
        return result;
    }
    const ScriptedPeers peers(desk.display());
    result.push_back({.name = wmctrlName, .promise = Promise::hoped, .move = [&, peers](std::size_t i) {
                          peers.wmctrlLoop(arrangements.at(i));
                          return true;
                      }});
    // Without --sync it exits before the window manager has moved anything; only the time until all is done
    // is comparable.
    result.push_back({.name = exitName, .promise = Promise::hoped, .move = [&, peers](std::size_t i) {
                          peers.xdotoolChain(arrangements.at(i), Waiting::none);
                          return true;
                      }});
    result.push_back({.name = blindName, .promise = Promise::hoped, .move = [&, peers](std::size_t i) {
                          peers.xdotoolChain(arrangements.at(i), Waiting::none);
                          floor.awaitWindowManager();
                          return true;
                      }});
    if (scenario.crowd.windows() <= 20) {
        result.push_back({.name = waitingName,
                          .promise = Promise::hoped,
                          .move =
                              [&, peers](std::size_t i) {
                                  peers.xdotoolChain(arrangements.at(i), Waiting::untilSeen);
                                  return true;
                              },
                          .rounds = waitingPeerRounds});
    }
    return result;
}

void measureRestore(CrowdedDesk& desk, XcbFloor& floor, MeasuredDesk& ours, const Scenario& scenario,
                    std::size_t rounds, Findings& findings) {
    for (std::size_t i = 0; i < desk.arrangements().size(); ++i) {
        if (!floor.restore(desk.arrangements().at(i))) {
            findings.mistakes.push_back(scenario.name() + ": the windows cannot be arranged.");
        }
        ours.learn(i);
    }
    std::vector<LiveWindow> captured = ours.capture();
    const auto standings = race(desk, floor, contestants(desk, floor, ours, captured, scenario), rounds);
    std::map<std::string, double> least;
    for (const auto& standing : standings) {
        least[standing.name] = standing.minimum();
    }

    TextTable table({"Restore of " + scenario.name(), "minimum", "median", "rounds", "failed", "wrong",
                     "ours / this", "target", ""});
    const std::map<std::string, double> targets{{floorName, 1.25}, {wmctrlName, 0.4}, {blindName, 1.5}};
    for (const auto& standing : standings) {
        std::vector<std::string> row{standing.name,
                                     duration(standing.minimum()),
                                     duration(standing.median()),
                                     std::to_string(standing.times.size()),
                                     std::to_string(standing.failedRounds),
                                     std::to_string(standing.wrongRounds)};
        const bool isOurs = standing.name == oursName || standing.name == oursWithCaptureName;
        if (!isOurs) {
            Ratio ratio{.what = fmt::format("restore of {} / {}", scenario.name(), standing.name),
                        .value = least[oursName] / standing.minimum(),
                        .target = 0};
            row.push_back(fmt::format("{:.2f}×", ratio.value));
            const auto target = targets.find(standing.name);
            if (target != targets.end() && scenario.rivals == Rivals::all) {
                ratio.target = target->second;
                row.push_back(fmt::format("≤ {:.2f}×", ratio.target));
                row.push_back(ratio.verdict());
                findings.ratios.push_back(ratio);
            }
        }
        table.add(std::move(row));
        if (standing.promise == Promise::proven && standing.wrongRounds + standing.failedRounds > 0) {
            findings.mistakes.push_back(
                fmt::format("{}: {} failed in {} rounds, and in {} reported success wrongly.",
                            scenario.name(), standing.name, standing.failedRounds, standing.wrongRounds));
        }
    }
    fmt::print("{}\n", table.text());
}

int run(std::size_t rounds) {
    const std::vector<Scenario> scenarios{
        {.crowd = {.applications = 10, .windowsPerApplication = 2}},
        {.crowd = {.applications = 25, .windowsPerApplication = 4}},
        {.crowd = {.applications = 1, .windowsPerApplication = 100}, .rivals = Rivals::none},
    };
    Findings findings;
    TextTable captures({"Capture", "floor", "ours", "ours / floor", "target", "", "round trips, floor / ours",
                        "CPU of ours", "of the X server"});
    for (const auto& scenario : scenarios) {
        CrowdedDesk desk(scenario.crowd);
        XcbFloor floor(desk.display());
        MeasuredDesk ours(desk.display());
        measureRestore(desk, floor, ours, scenario, rounds, findings);
        std::ignore = floor.restore(desk.arrangements()[0]);
        measureCapture(desk, floor, ours, scenario, rounds, captures, findings);
    }
    fmt::print("{}\nMinima of {} rounds, {} for captures, in turns on one private desk (Xorg with the dummy "
               "driver, openbox).\n\n",
               captures.text(), rounds, rounds * capturesPerRound);

    TextTable summary({"Ratio", "measured", "target", ""});
    for (const auto& ratio : findings.ratios) {
        summary.add({ratio.what, fmt::format("{:.2f}", ratio.value), fmt::format("≤ {:.2f}", ratio.target),
                     ratio.verdict()});
    }
    fmt::print("{}", summary.text());
    for (const auto& mistake : findings.mistakes) {
        fmt::print("WRONG: {}\n", mistake);
    }
    return findings.mistakes.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace vantrel::bench

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : int{vantrel::bench::defaultRounds};
    if (argc > 2 || rounds < 1) {
        fmt::print(stderr, "usage: vantrel_desk_benchmark [ROUNDS]\n");
        return 2;
    }
    try {
        return vantrel::bench::run(static_cast<std::size_t>(rounds));
    } catch (const std::exception& error) {
        fmt::print(stderr, "vantrel_desk_benchmark: {}\n", error.what());
        return EXIT_FAILURE;
    }
}
