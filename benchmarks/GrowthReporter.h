// Google Benchmark's console report, with a table at the end that tells how every measured operation grows.
#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace vantrel::bench {

// The counter by which a benchmark gives the shortest time of its own measuring, in seconds.
inline constexpr const char* leastCounter = "least";

class GrowthReporter final : public benchmark::ConsoleReporter {
public:
    GrowthReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

    // False when a benchmark found that what it measures is wrong.
    [[nodiscard]] bool isRight() const { return m_isRight; }

private:
    // Seconds by size, of every benchmark that has sizes.
    std::map<std::string, std::map<double, double>> m_times;
    // The counters at the largest size.
    std::map<std::string, std::string> m_counters;
    bool m_isRight = true;
};

} // namespace vantrel::bench
