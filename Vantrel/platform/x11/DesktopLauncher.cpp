#include "Vantrel/platform/x11/DesktopLauncher.h"

#include "Vantrel/platform/x11/UnrestrictedStart.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <memory>
#include <unistd.h>

namespace vantrel::DesktopLauncher {

namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};

using AppInfo = std::unique_ptr<GDesktopAppInfo, Unref>;

AppInfo find(const std::string& id) {
    return AppInfo(g_desktop_app_info_new((id + ".desktop").c_str()));
}

// GIO starts a DBusActivatable application over the bus and cannot tell whether that worked. Nearly every
// such file also has a command that does the same and reports failure.
AppInfo startedByCommand(AppInfo info) {
    const char* const file = g_desktop_app_info_get_filename(info.get());
    const bool isActivated =
        g_desktop_app_info_get_boolean(info.get(), G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE) != 0;
    if (!isActivated || file == nullptr || g_app_info_get_commandline(G_APP_INFO(info.get())) == nullptr) {
        return info;
    }
    const std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)> keys(g_key_file_new(), g_key_file_unref);
    if (g_key_file_load_from_file(keys.get(), file, G_KEY_FILE_NONE, nullptr) == 0) {
        return info;
    }
    g_key_file_remove_key(keys.get(), G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE,
                          nullptr);
    AppInfo byCommand(g_desktop_app_info_new_from_keyfile(keys.get()));
    return byCommand ? std::move(byCommand) : std::move(info);
}

// Runs in the child before exec, so it may only make system calls. Keeps Ctrl+C in our terminal from ending
// the started program.
void detach(gpointer folder) {
    setsid();
    if (folder != nullptr) {
        [[maybe_unused]] const int changed = chdir(static_cast<const char*>(folder));
    }
}

} // namespace

std::optional<std::string> name(const std::string& id) {
    const AppInfo info = find(id);
    return info ? std::optional<std::string>(g_app_info_get_name(G_APP_INFO(info.get()))) : std::nullopt;
}

bool start(const std::string& id) {
    if (!UnrestrictedStart::isNeeded()) {
        return startHere(id);
    }
    return find(id) &&
           (UnrestrictedStart::runSelf({UnrestrictedStart::applicationOption, id}) || startHere(id));
}

bool startHere(const std::string& id) {
    AppInfo info = find(id);
    if (!info) {
        return false;
    }
    info = startedByCommand(std::move(info));
    const std::unique_ptr<GAppLaunchContext, Unref> context(g_app_launch_context_new());
    // Our environment may still hold the start-up tokens of whoever started us.
    for (const char* variable : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"}) {
        g_app_launch_context_unsetenv(context.get(), variable);
    }
    const bool namesFolder = g_desktop_app_info_has_key(info.get(), G_KEY_FILE_DESKTOP_KEY_PATH) != 0;
    std::string home = namesFolder ? "" : g_get_home_dir();
    // Without G_SPAWN_DO_NOT_REAP_CHILD, GLib makes the program a child of the init process.
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags, which GLib does not mark as such
    constexpr auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                    G_SPAWN_STDERR_TO_DEV_NULL);
    return g_desktop_app_info_launch_uris_as_manager(info.get(), nullptr, context.get(), flags, detach,
                                                     namesFolder ? nullptr : home.data(), nullptr, nullptr,
                                                     nullptr) != 0;
}

} // namespace vantrel::DesktopLauncher
