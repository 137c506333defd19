// The harness's own connection to the private X server: independent of the code under test.
#pragma once

#include "tools/desk/Waiting.h"

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel::tools {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename T>
using Reply = std::unique_ptr<T, Free>;

class DeskConnection {
public:
    // Throws std::runtime_error if the server does not respond.
    explicit DeskConnection(const std::string& display);
    ~DeskConnection();
    DeskConnection(const DeskConnection&) = delete;
    DeskConnection& operator=(const DeskConnection&) = delete;

    [[nodiscard]] xcb_connection_t* xcb() const { return m_connection; }

    [[nodiscard]] xcb_window_t root() const { return m_root; }

    [[nodiscard]] const xcb_screen_t& screen() const { return *m_screen; }

    [[nodiscard]] xcb_atom_t atom(const std::string& name);

    // The 32-bit values of a property; empty if it is missing or has another format.
    [[nodiscard]] std::vector<std::uint32_t> values(xcb_window_t window, const std::string& property);
    // The bytes of a text property; none if it is missing.
    [[nodiscard]] std::optional<std::string> text(xcb_window_t window, const std::string& property);

    // Sends a client message to the root window, as pagers do (source 2).
    void tellWindowManager(xcb_window_t window, const std::string& message,
                           const std::vector<std::uint32_t>& data);
    // Returns when the server has processed everything sent before.
    void finish();

    // Like waitUntil, but also checks whenever anything happens on the root window.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& condition, double seconds = generousSeconds);

private:
    xcb_connection_t* m_connection = nullptr;
    const xcb_screen_t* m_screen = nullptr;
    xcb_window_t m_root = 0;
    std::map<std::string, xcb_atom_t> m_atoms;
};

} // namespace vantrel::tools
