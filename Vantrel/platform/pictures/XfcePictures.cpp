#include "Vantrel/platform/pictures/XfcePictures.h"

#include "Vantrel/platform/gio/GioHandle.h"
#include "Vantrel/platform/pictures/PictureFile.h"
#include "Vantrel/platform/pictures/XfceImages.h"
#include "Vantrel/platform/x11/MonitorQuery.h"

#include <algorithm>
#include <gio/gio.h>
#include <map>

namespace vantrel {

namespace {

constexpr const char* channel = "xfce4-desktop";
// In milliseconds.
constexpr int replyTimeout = 2000;

// Returns null if the settings daemon does not reply.
GLibHandle<GVariant> call(const char* method, GVariant* arguments) {
    const GLibHandle<GVariant> owned(g_variant_ref_sink(arguments));
    const GObjectHandle<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    return GLibHandle<GVariant>(
        bus ? g_dbus_connection_call_sync(bus.get(), "org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf",
                                          method, owned.get(), nullptr, G_DBUS_CALL_FLAGS_NONE, replyTimeout,
                                          nullptr, nullptr)
            : nullptr);
}

std::map<std::string, std::string> images(const std::string& settings) {
    const auto reply = call("GetAllProperties", g_variant_new("(ss)", channel, settings.c_str()));
    return reply ? xfceImages(reply.get()) : std::map<std::string, std::string>{};
}

} // namespace

std::optional<std::string> XfcePictures::settingsOf(const DisplayInfo& display) const {
    const auto monitors = MonitorQuery::read(*m_connection);
    if (!monitors) {
        return std::nullopt;
    }
    const auto found = std::ranges::find(*monitors, display.frame, &MonitorReading::area);
    if (found == monitors->end() || found->outputs.empty()) {
        return std::nullopt;
    }
    return "/backdrop/screen0/monitor" + found->outputs.front().connector;
}

std::optional<std::string> XfcePictures::picture(const DisplayInfo& display) {
    const auto settings = settingsOf(display);
    const auto all = settings ? images(*settings) : std::map<std::string, std::string>{};
    return all.empty() || all.begin()->second.empty() ? std::nullopt
                                                      : std::optional(PictureFile::url(all.begin()->second));
}

bool XfcePictures::setPicture(const DisplayInfo& display, const std::string& picture) {
    const auto settings = settingsOf(display);
    if (!settings || !PictureFile::isReadable(picture)) {
        return false;
    }
    auto all = images(*settings);
    if (all.empty()) {
        all[*settings + "/workspace0" + xfceImageKey] = "";
    }
    const std::string path = PictureFile::path(picture);
    return std::ranges::all_of(all, [&](const auto& image) {
        return call("SetProperty", g_variant_new("(ssv)", channel, image.first.c_str(),
                                                 g_variant_new_string(path.c_str()))) != nullptr;
    });
}

} // namespace vantrel
