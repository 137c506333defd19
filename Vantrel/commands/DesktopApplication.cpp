#include "Vantrel/commands/DesktopApplication.h"

#include <array>
#include <fmt/format.h>
#include <utility>

namespace vantrel::DesktopApplication {

namespace {

using Pair = std::pair<std::string_view, std::string_view>;

constexpr std::string_view showPanel = "ShowPanel";

// By the names of the actions in the desktop file.
constexpr std::array<Pair, 4> methodsOfActions{{
    {"RestoreNow", "Restore"},
    {"SaveLayout", "Save"},
    {"StashOrBringBack", "ToggleStash"},
    {"UndoLastRestore", "Undo"},
}};

std::string_view methodOfAction(std::string_view action) {
    for (const auto& [name, method] : methodsOfActions) {
        if (name == action) {
            return method;
        }
    }
    return "";
}

} // namespace

std::string xml() {
    return fmt::format(R"(  <interface name="{}">
    <method name="Activate">
      <arg name="platform_data" type="a{{sv}}" direction="in"/>
    </method>
    <method name="Open">
      <arg name="uris" type="as" direction="in"/>
      <arg name="platform_data" type="a{{sv}}" direction="in"/>
    </method>
    <method name="ActivateAction">
      <arg name="action_name" type="s" direction="in"/>
      <arg name="parameter" type="av" direction="in"/>
      <arg name="platform_data" type="a{{sv}}" direction="in"/>
    </method>
  </interface>
)",
                       interface);
}

std::string_view methodFor(const QDBusMessage& call) {
    if (call.member() == "Activate" || call.member() == "Open") {
        return showPanel;
    }
    if (call.member() == "ActivateAction" && !call.arguments().isEmpty()) {
        return methodOfAction(call.arguments().front().toString().toStdString());
    }
    return "";
}

} // namespace vantrel::DesktopApplication
