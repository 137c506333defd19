#include "tests/Vantrel/platform/qt/QtApplication.h"

#include "Vantrel/platform/qt/GuardedApplication.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace vantrel::testing {

namespace {

std::vector<std::string>& thrown() {
    static std::vector<std::string> lines;
    return lines;
}

class Application final : public ::testing::Environment {
public:
    void SetUp() override {
        m_application = std::make_unique<GuardedApplication<QCoreApplication>>(
            m_count, m_arguments, [](const std::string& line) { thrown().push_back(line); });
    }
    void TearDown() override { m_application.reset(); }

private:
    int m_count = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<QCoreApplication> m_application;
};

// gtest owns and deletes it.
const auto* const application = ::testing::AddGlobalTestEnvironment(new Application);

} // namespace

bool waitFor(const std::function<bool()>& arrived) {
    const QDeadlineTimer deadline(std::chrono::seconds(10));
    while (!arrived()) {
        if (deadline.hasExpired()) {
            return false;
        }
        // Bounded, since with nothing pending it would wait for an event that may never come.
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void handlePending() {
    QCoreApplication::processEvents();
}

std::vector<std::string> takeThrown() {
    return std::exchange(thrown(), {});
}

} // namespace vantrel::testing
