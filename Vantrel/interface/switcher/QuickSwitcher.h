// Opens the quick switcher when its shortcut is pressed, follows keys and pointer, and applies the selected
// scene when the shortcut is released.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/interface/switcher/QuickSwitcherView.h"

#include <QTimer>

#include <memory>
#include <optional>

namespace vantrel {

// Lives on the main thread; the controller outlives it. The window exists only while it is shown.
class QuickSwitcher {
public:
    struct Services {
        // Outlives the switcher; null draws every icon.
        ApplicationIcons* icons = nullptr;
        // Outlives the switcher; null for no pictures of windows.
        WindowPictures* windowPictures = nullptr;
        // Outlives the switcher; null where an ordinary window gets the keys and their releases.
        HeldKeyboard* keyboard = nullptr;
    };

    QuickSwitcher(AppController& controller, Services services);
    ~QuickSwitcher();
    QuickSwitcher(const QuickSwitcher&) = delete;
    QuickSwitcher& operator=(const QuickSwitcher&) = delete;

    // A press of the shortcut: opens the switcher, or goes on to the next scene.
    void pressed();
    // Null while it is closed.
    [[nodiscard]] QuickSwitcherView* view() const { return m_view.get(); }
    [[nodiscard]] const QuickSwitcherStrip& strip() const { return m_strip; }

private:
    void open(HotKeyCombo combo);
    void handle(const HeldKeyboard::Key& key);
    void released();
    void apply();
    void close();
    void refresh();

    AppController& m_controller;
    Services m_services;
    ApplicationLooks m_looks;
    QuickSwitcherStrip m_strip;
    std::unique_ptr<QuickSwitcherView> m_view;
    std::unique_ptr<HeldKeyboard::Hold> m_hold;
    // The modifiers whose release applies, in an ordinary window.
    Qt::KeyboardModifiers m_modifiers;
    std::shared_ptr<void> m_live;
    std::optional<Publisher::ObserverID> m_observer;
    // Leaves time to read why there is nothing to choose from.
    QTimer m_closing;
};

} // namespace vantrel
