// The application that the interface's tests run in: offscreen, with one style and font everywhere.
#include <QApplication>
#include <QFont>
#include <QStyleFactory>

#include <gtest/gtest.h>
#include <memory>

namespace {

class Application final : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        m_application = std::make_unique<QApplication>(m_count, m_arguments);
        QApplication::setStyle(QStyleFactory::create("Fusion"));
        QApplication::setFont(QFont("DejaVu Sans", 10));
        QApplication::setQuitOnLastWindowClosed(false);
    }

    void TearDown() override { m_application.reset(); }

private:
    int m_count = 1;
    char m_name[8] = "vantrel";
    char* m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<QApplication> m_application;
};

[[maybe_unused]] const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new Application);

} // namespace
