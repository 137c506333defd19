#include "tests/live/UserAtDesk.h"

#include "tools/desk/Panel.h"
#include "tools/desk/Picture.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <stdexcept>

namespace vantrel::live {

UserAtDesk::UserAtDesk(VantrelDesk& desk) : m_desk(desk) {
    m_desk.start({"/usr/libexec/at-spi-bus-launcher", "--launch-immediately"});
    const bool hasBus = waitUntil([&] {
        return m_desk.callOnBus("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress", {})
            .contains("unix:");
    });
    if (!hasBus) {
        throw std::runtime_error("There is no accessibility bus.");
    }
}

ProgramRun UserAtDesk::startVantrel() const {
    return m_desk.startVantrel({"QT_ACCESSIBILITY=1", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"});
}

void click(const VantrelDesk& desk, Point place, int button) {
    const auto run = desk.run({"xdotool", "mousemove", fmt::format("{:.0f}", place.x),
                               fmt::format("{:.0f}", place.y), "click", std::to_string(button)});
    EXPECT_EQ(run.code, 0) << run.output;
}

void UserAtDesk::press(const std::vector<std::string>& keys) const {
    std::vector<std::string> command{"xdotool", "key", "--delay", "60"};
    command.insert(command.end(), keys.begin(), keys.end());
    EXPECT_EQ(m_desk.run(command).code, 0);
}

void UserAtDesk::type(const std::string& text) const {
    EXPECT_EQ(m_desk.run({"xdotool", "type", "--delay", "60", text}).code, 0);
}

Rect trayIcon(VantrelDesk& desk) {
    constexpr double widest = 60;
    constexpr double end = 200;
    std::optional<Rect> area;
    const bool isThere = waitUntil([&] {
        const auto before = area;
        const auto picture = Picture::take(desk.connection());
        const auto ground =
            picture.colourAt(static_cast<std::size_t>(end), static_cast<std::size_t>(Panel::thickness / 2));
        const bool isPainted = ground != Picture::Colour{} &&
                               !picture.drawnOn(ground, {{widest, 0}, {end - widest, Panel::thickness}});
        area = isPainted ? picture.drawnOn(ground, {{0, 0}, {widest, Panel::thickness}}) : std::nullopt;
        return area && area == before;
    });
    if (!isThere) {
        throw std::runtime_error("There is no icon in the tray.");
    }
    return *area;
}

std::vector<Control> UserAtDesk::controls() const {
    const auto run = m_desk.run({ACCESSIBLE_TREE, "Vantrel"});
    const auto found = nlohmann::json::parse(run.output, nullptr, false);
    std::vector<Control> controls;
    for (const auto& each : found.is_array() ? found : nlohmann::json::array()) {
        const auto& frame = each.at("frame");
        controls.push_back({.window = each.at("window"),
                            .role = each.at("role"),
                            .name = each.at("name"),
                            .description = each.at("description"),
                            .states = each.at("states"),
                            .frame = {{frame[0], frame[1]}, {frame[2], frame[3]}}});
    }
    std::erase_if(controls, [](const Control& control) { return !control.is("showing"); });
    return controls;
}

std::optional<Control> UserAtDesk::find(const std::string& name) const {
    std::optional<Control> found;
    for (auto& control : controls()) {
        if (control.name == name) {
            found = std::move(control);
        }
    }
    return found;
}

Control UserAtDesk::await(const std::string& name) const {
    std::optional<Control> found;
    if (!waitUntil([&] { return (found = find(name)).has_value(); })) {
        std::vector<std::string> names;
        for (const auto& control : controls()) {
            names.push_back(control.name);
        }
        throw std::runtime_error(fmt::format("Nothing shown is called {}. Shown: {}", name, names));
    }
    return *found;
}

bool UserAtDesk::awaitNone(const std::string& name) const {
    return waitUntil([&] { return !find(name); });
}

void UserAtDesk::hoverOver(const std::string& name) const {
    Control control = await(name);
    // Windows may still be growing.
    std::ignore = waitUntil([&] {
        const Rect before = control.frame;
        control = await(name);
        return control.frame == before;
    });
    const Point middle = control.frame.center();
    EXPECT_EQ(
        m_desk.run({"xdotool", "mousemove", fmt::format("{:.0f}", middle.x), fmt::format("{:.0f}", middle.y)})
            .code,
        0);
}

void UserAtDesk::clickOn(const std::string& name) const {
    hoverOver(name);
    EXPECT_EQ(m_desk.run({"xdotool", "click", "1"}).code, 0);
}

void UserAtDesk::tabTo(const std::string& name) const {
    constexpr int mostControls = 30;
    std::string passed;
    for (int i = 0; i < mostControls; ++i) {
        // Qt says so of the chosen row of every list, whether or not the list has the focus.
        for (const Control& control : controls()) {
            if (control.is("focused") && control.name == name) {
                return;
            }
            passed += control.is("focused") ? control.name + "; " : "";
        }
        press({"Tab"});
    }
    ADD_FAILURE() << "Tab does not reach " << name << ", only: " << passed;
}

} // namespace vantrel::live
