// Google Benchmark's console report, plus a final table of how each measured operation grows.
#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace vantrel::bench {

// The counter for the shortest time that a benchmark measured itself, in seconds.
inline constexpr const char* leastCounter = "least";

class GrowthReporter final : public benchmark::ConsoleReporter {
public:
    GrowthReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

    // False if a benchmark found its result to be wrong.
    [[nodiscard]] bool isRight() const { return m_isRight; }

private:
    // Seconds by size, for every benchmark with sizes.
    std::map<std::string, std::map<double, double>> m_times;
    // The counters at the largest size.
    std::map<std::string, std::string> m_counters;
    bool m_isRight = true;
};

} // namespace vantrel::bench
