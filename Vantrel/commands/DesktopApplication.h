// org.freedesktop.Application, through which launchers open a program and run the actions of its desktop file
// (DBusActivatable).
#pragma once

#include <QDBusMessage>

#include <string>
#include <string_view>

namespace vantrel::DesktopApplication {

inline constexpr const char* interface = "org.freedesktop.Application";

// The interface, for introspection.
[[nodiscard]] std::string xml();

// The method of ControlNames::interface that does what the call asks for. Empty when the interface has no
// such method or the desktop file no such action.
[[nodiscard]] std::string_view methodFor(const QDBusMessage& call);

} // namespace vantrel::DesktopApplication
