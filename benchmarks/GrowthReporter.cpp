#include "benchmarks/GrowthReporter.h"

#include "benchmarks/TextTable.h"

#include <cmath>
#include <fmt/format.h>
#include <iterator>

namespace vantrel::bench {

namespace {

// "loadStore" of "loadStore/100/manual_time".
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
        // What waits for the disk says itself what it took at the least; for the rest processor time is what
        // other programs on the machine disturb least.
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

// The exponent between the two largest sizes: 1 grows as the size does, 2 as its square.
void GrowthReporter::Finalize() {
    ConsoleReporter::Finalize();
    TextTable table(
        {"Growth", "sizes", "time at the smallest", "at the largest", "grows as", "ratios at the largest"});
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
