// Plugs and unplugs monitors of the private X server, in the steps that real hot-plugging takes.
#pragma once

#include "VantrelCore/model/Geometry.h"
#include "tools/desk/DeskConnection.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>
#include <xcb/randr.h>

namespace vantrel::tools {

// Whole pixels.
struct MonitorPlace {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;

    bool operator==(const MonitorPlace&) const = default;
};

// The dummy driver has 16 outputs, "DUMMY0" to "DUMMY15"; an output is connected while it shows something.
class Monitors {
public:
    explicit Monitors(DeskConnection& connection);

    // Initially one large monitor is plugged in. Makes exactly these monitors the plugged-in ones, output by
    // output; the first becomes the primary.
    void arrange(const std::vector<MonitorPlace>& places);
    // Also moves or resizes a monitor that is already plugged in.
    void plug(std::size_t output, const MonitorPlace& place);
    void unplug(std::size_t output);
    // Turns every monitor off, as during a graphics driver reset; the next plug or relight ends this.
    void darken();
    void relight();
    // Turns all monitors off and on again before any other client is served.
    void blink();
    // Sends a query that makes the server probe its outputs, as any program may. Only then does the dummy
    // driver notice connected outputs; window managers ignore outputs that are not connected.
    void probe();

    void setPrimary(std::size_t output);
    // Sets the output's identity data.
    void setEdid(std::size_t output, const std::vector<std::uint8_t>& block);
    // A monitor that the user defines over an output (RandR 1.5).
    void defineMonitor(const std::string& name, const MonitorPlace& place,
                       const std::vector<std::size_t>& outputs);
    void removeMonitor(const std::string& name);

    [[nodiscard]] const std::map<std::size_t, MonitorPlace>& plugged() const { return m_plugged; }

private:
    void show(std::size_t output, const MonitorPlace& place);
    void hide(std::size_t output);
    void fitScreen(std::uint16_t width, std::uint16_t height);
    [[nodiscard]] std::pair<std::uint16_t, std::uint16_t> extent() const;
    [[nodiscard]] xcb_randr_mode_t modeFor(std::size_t output, std::uint16_t width, std::uint16_t height);
    void configure(std::size_t crtc, std::int16_t x, std::int16_t y, xcb_randr_mode_t mode,
                   const std::vector<xcb_randr_output_t>& outputs);

    DeskConnection& m_connection;
    std::vector<xcb_randr_output_t> m_outputs;
    std::vector<xcb_randr_crtc_t> m_crtcs;
    std::map<std::pair<std::uint16_t, std::uint16_t>, xcb_randr_mode_t> m_modes;
    std::map<std::size_t, MonitorPlace> m_plugged;
};

} // namespace vantrel::tools
