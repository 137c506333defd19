#include "benchmarks/GrowthReporter.h"

#include "benchmarks/TextTable.h"

#include <cmath>
#include <fmt/format.h>
#include <iterator>

namespace vantrel::bench {

namespace {

// "loadStore" for "loadStore/100/manual_time".
std::string family(const benchmark::BenchmarkReporter::Run& run) {
    return run.run_name.function_name;
}

} // namespace

void GrowthReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const auto& run : runs) {
        m_isRight = m_isRight && !run.error_occurred;
        if (run.run_type != Run::RT_Iteration || run.complexity_n == 0 || run.error_occurred) {
            continue;
        }
        // Benchmarks that wait for the disk report their own minimum; for the others, processor time is least
        // disturbed by other programs.
        const auto least = run.counters.find(leastCounter);
        m_times[family(run)][static_cast<double>(run.complexity_n)] =
            least != run.counters.end() ? least->second.value
                                        : run.cpu_accumulated_time / static_cast<double>(run.iterations);
        std::string counters;
        for (const auto& [name, counter] : run.counters) {
            if (name != leastCounter) {
                counters += fmt::format("{}{} {:.2f}×", counters.empty() ? "" : ", ", name, counter.value);
            }
        }
        m_counters[family(run)] = counters;
    }
}

// The growth exponent between the two largest sizes: 1 is linear, 2 quadratic.
void GrowthReporter::Finalize() {
    ConsoleReporter::Finalize();
    TextTable table(
        {"Growth", "sizes", "time at the smallest", "at the largest", "growth", "ratios at the largest"});
    for (const auto& [name, times] : m_times) {
        if (times.size() < 2) {
            continue;
        }
        const auto& [largest, last] = *times.rbegin();
        const auto& [smaller, before] = *std::next(times.rbegin());
        const auto& [smallest, first] = *times.begin();
        table.add({name, fmt::format("{:.0f} to {:.0f}", smallest, largest), duration(first), duration(last),
                   fmt::format("n^{:.2f}", std::log(last / before) / std::log(largest / smaller)),
                   m_counters[name]});
    }
    GetOutputStream() << '\n' << table.text();
}

} // namespace vantrel::bench
