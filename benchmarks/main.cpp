// Exits with 1 if a benchmark found its result to be wrong.
#include "benchmarks/GrowthReporter.h"

#include <QApplication>

#include <cstdlib>

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    // For the interface, on a display of two pixels per point.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", "2");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    vantrel::bench::GrowthReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.isRight() ? EXIT_SUCCESS : EXIT_FAILURE;
}
