// A user on a private desk: clicks and presses real keys, and finds controls as a screen reader does.
#pragma once

#include "tests/live/VantrelDesk.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vantrel::live {

// One thing that a screen reader finds in vantrel's windows.
struct Control {
    // The title of the window.
    std::string window;
    std::string role;
    std::string name;
    std::string description;
    // "showing", "focusable", "focused", "checked" ...
    std::set<std::string> states;
    // On the screen; empty for what a drawing contains.
    Rect frame;

    [[nodiscard]] bool is(const std::string& state) const { return states.contains(state); }
};

void click(const VantrelDesk& desk, Point place, int button = 1);

// The icon at the start of a tray that is along the upper edge, once it stays as it is.
[[nodiscard]] Rect trayIcon(VantrelDesk& desk);

class UserAtDesk {
public:
    // With an accessibility bus; the desk outlives the user.
    explicit UserAtDesk(VantrelDesk& desk);

    // Vantrel, talking to screen readers.
    [[nodiscard]] ProgramRun startVantrel() const;

    // Keys as xdotool names them, one after the other.
    void press(const std::vector<std::string>& keys) const;
    void type(const std::string& text) const;

    // Everything that vantrel shows now, in reading order.
    [[nodiscard]] std::vector<Control> controls() const;
    // None while nothing that has this name is shown. The last of several.
    [[nodiscard]] std::optional<Control> find(const std::string& name) const;
    // Waits for it; the test fails if it never comes.
    Control await(const std::string& name) const;
    bool awaitNone(const std::string& name) const;
    // Waits until the control stays where it is, and puts the pointer on its middle.
    void hoverOver(const std::string& name) const;
    void clickOn(const std::string& name) const;
    // Presses Tab until the control of this name has the focus; the test fails if it never has.
    void tabTo(const std::string& name) const;

private:
    VantrelDesk& m_desk;
};

} // namespace vantrel::live
