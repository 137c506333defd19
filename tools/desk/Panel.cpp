#include "tools/desk/Panel.h"

#include <algorithm>
#include <fmt/format.h>
#include <stdexcept>

namespace vantrel::tools {

namespace {

// A panel over the whole width of the first monitor (position 6 is the upper edge) in one plain colour.
constexpr const char* configuration = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="{0}"/>
      <property name="background-style" type="uint" value="1"/>
      <property name="background-rgba" type="array">
        <value type="double" value="{1}"/>
        <value type="double" value="{1}"/>
        <value type="double" value="{1}"/>
        <value type="double" value="1"/>
      </property>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";

} // namespace

Panel::Panel(PrivateDesk& desk, Look look) : m_desk(desk) {
    m_desk.home().write("config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml",
                        fmt::format(fmt::runtime(configuration), static_cast<int>(thickness),
                                    look == Look::light ? 0.93 : 0.12));
}

void Panel::start() {
    m_process = &m_desk.start({"xfce4-panel", "--disable-wm-check"});
    const bool isThere = m_desk.connection().waitUntil([&] {
        return std::ranges::any_of(seenWindows(m_desk.connection()), [](const SeenWindow& window) {
            return window.className == "Xfce4-panel" && window.isViewable;
        });
    });
    if (!isThere) {
        throw std::runtime_error("xfce4-panel does not appear: " + m_desk.home().logEnd("xfce4-panel"));
    }
}

void Panel::end() {
    m_process->end();
}

} // namespace vantrel::tools
