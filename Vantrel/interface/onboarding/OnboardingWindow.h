// The introduction: four pages about what the program does, what it needs, how the user works, and the three
// shortcuts.
#pragma once

#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/HotKeyRecorder.h"
#include "Vantrel/interface/controls/Label.h"
#include "Vantrel/interface/controls/Switch.h"
#include "Vantrel/interface/desk/DeskView.h"
#include "Vantrel/interface/onboarding/OnboardingContent.h"

#include <QTimer>
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
        // Opens the system's settings where what is missing can be permitted.
        std::function<void()> openPermissionSettings = [] {};
        // Stores the answer and the settings that suit it. Returns why that is not possible, as does the
        // next.
        std::function<std::optional<std::string>(DockFrequency)> answer = [](auto) { return std::nullopt; };
        std::function<std::optional<std::string>(bool)> setStartsWithSession = [](bool) {
            return std::nullopt;
        };
        std::function<std::vector<OnboardingContent::Shortcut>()> shortcuts = [] {
            return std::vector<OnboardingContent::Shortcut>();
        };
        HotKeyRecorder::KeyReader keyCode = [](const QKeyEvent&) { return std::nullopt; };
        std::function<std::vector<TakenHotKey>()> takenHotKeys = [] { return std::vector<TakenHotKey>(); };
        // None resets it to its default. Returns why that is not possible.
        std::function<std::optional<std::string>(const HotKeySurface&, std::optional<HotKeyCombo>)>
            setHotkey = [](const auto&, auto) { return std::nullopt; };
        // The user has seen it through or skipped it.
        std::function<void()> finished = [] {};
        std::function<void()> save = [] {};
    };

    struct Start {
        std::optional<DockFrequency> answer{};
        bool startsWithSession = false;
        // Plays the story on the first page.
        bool wantsMotion = true;
    };

    static constexpr int pageCount = 4;

    OnboardingWindow(ApplicationLooks& looks, const Start& start, Actions actions);

    [[nodiscard]] int page() const;
    void showPage(int page);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    class Dots;

    [[nodiscard]] QWidget* newPage(const QString& title, const QString& text, QVBoxLayout*& column);
    [[nodiscard]] QWidget* drawingPage(ApplicationLooks& looks, bool wantsMotion);
    [[nodiscard]] QWidget* checksPage();
    [[nodiscard]] QWidget* answersPage(const Start& start);
    [[nodiscard]] QWidget* shortcutsPage();
    [[nodiscard]] QWidget* shortcutRow(std::size_t index, QWidget* page);
    void showChecks();
    void showAnswerProblem(const std::optional<std::string>& problem);
    void showShortcuts();
    // Grows to the height that the highest page needs.
    void fit();
    void forward();
    void back();
    [[nodiscard]] int points(double length) const;

    Actions m_actions;
    QStackedWidget* m_pages;
    Dots* m_dots = nullptr;
    Label* m_checkSummary = nullptr;
    Label* m_answerProblem = nullptr;
    QWidget* m_checks = nullptr;
    std::vector<OnboardingContent::Check> m_shownChecks;
    // While the checks are on the page.
    QTimer m_checking;
    Switch* m_startsWithSession = nullptr;
    struct ShortcutRow {
        Label* detail = nullptr;
        HotKeyRecorder* recorder = nullptr;
        Label* problem = nullptr;
    };
    std::vector<ShortcutRow> m_shortcuts;
    ActionButton* m_back = nullptr;
    ActionButton* m_forward = nullptr;
};

} // namespace vantrel
