// The introduction: four pages about what the program does, what it needs, how the user works, and the three
// shortcuts.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/Switch.h"
#include "Vantrel/interface/desk/DeskView.h"
#include "Vantrel/interface/onboarding/OnboardingContent.h"

#include <QWidget>

#include <functional>

class QStackedWidget;
class QVBoxLayout;

namespace vantrel {

class OnboardingWindow final : public QWidget {
public:
    struct Actions {
        std::function<std::vector<OnboardingContent::Check>()> checks = [] {
            return std::vector<OnboardingContent::Check>();
        };
        std::function<void(DockFrequency)> answer = [](auto) {};
        std::function<void(bool)> setStartsWithSession = [](bool) {};
        // The user has seen it through or skipped it.
        std::function<void()> finished = [] {};
        std::function<void()> save = [] {};
    };

    static constexpr int pageCount = 4;

    OnboardingWindow(ApplicationLooks& looks, const std::vector<OnboardingContent::Shortcut>& shortcuts,
                     std::optional<DockFrequency> answer, bool startsWithSession, Actions actions);

    [[nodiscard]] int page() const;
    void showPage(int page);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    class Dots;

    [[nodiscard]] QWidget* newPage(const QString& title, const QString& text, QVBoxLayout*& column);
    [[nodiscard]] QWidget* drawingPage(ApplicationLooks& looks);
    [[nodiscard]] QWidget* checksPage();
    [[nodiscard]] QWidget* answersPage(std::optional<DockFrequency> answer, bool startsWithSession);
    [[nodiscard]] QWidget* shortcutsPage(const std::vector<OnboardingContent::Shortcut>& shortcuts);
    void showChecks();
    void forward();
    void back();
    [[nodiscard]] int points(double length) const;

    Actions m_actions;
    QStackedWidget* m_pages;
    Dots* m_dots = nullptr;
    Label* m_checkSummary = nullptr;
    QWidget* m_checks = nullptr;
    ActionButton* m_back = nullptr;
    ActionButton* m_forward = nullptr;
};

} // namespace vantrel
