// Exits with 1 if a benchmark found its result to be wrong.
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
