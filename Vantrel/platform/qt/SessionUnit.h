// This program's unit in systemd's user manager, "vantrel.service", which can start with the graphical
// session.
#pragma once

#include <QDBusConnection>
#include <QVariant>

#include <string>

namespace vantrel {

// Waits for the replies of systemd, which is on the bus or not; it is never started.
class SessionUnit {
public:
    // `program` is an absolute path.
    SessionUnit(QDBusConnection bus, std::string program);

    struct State {
        // systemd runs this session (graphical-session.target is active), and the unit starts the program.
        bool isUsable = false;
        bool isEnabled = false;
    };

    [[nodiscard]] State state() const;

    // Takes effect at the next login. Returns the error's message, empty on success.
    [[nodiscard]] std::string setEnabled(bool isEnabled) const;

private:
    // Invalid when there is no such property.
    [[nodiscard]] QVariant property(const char* unit, const char* name) const;
    [[nodiscard]] bool startsProgram() const;

    QDBusConnection m_bus;
    std::string m_program;
};

} // namespace vantrel
