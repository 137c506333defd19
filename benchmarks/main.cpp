// Ends with 1 when a benchmark found that what it measures is wrong.
#include "benchmarks/GrowthReporter.h"

#include <cstdlib>

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    vantrel::bench::GrowthReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.isRight() ? EXIT_SUCCESS : EXIT_FAILURE;
}
