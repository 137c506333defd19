// A desktop's "do not disturb" switch.
#pragma once

#include "Vantrel/platform/gio/GioHandle.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {

// Create, use and destroy on one thread that runs its default main context.
class FocusSwitch {
public:
    // Called on that thread when the desktop reports a change, even if the value is the same.
    using OnSwitched = std::function<void(bool isOn)>;

    FocusSwitch() = default;
    FocusSwitch(const FocusSwitch&) = delete;
    FocusSwitch& operator=(const FocusSwitch&) = delete;
    virtual ~FocusSwitch() = default;

    // The current state. Off if the desktop does not say.
    [[nodiscard]] virtual bool isOn() = 0;
};

// A settings key of GNOME, Cinnamon or MATE.
struct FocusSetting {
    const char* schema;
    const char* key;
    // The key's value while notifications are suppressed.
    bool valueWhenOn;
};

// Returns null if this machine has no such setting.
[[nodiscard]] std::unique_ptr<FocusSwitch> makeSettingSwitch(const FocusSetting& setting,
                                                             FocusSwitch::OnSwitched onSwitched);

// Xfce: the notification daemon's property in Xfconf.
[[nodiscard]] std::unique_ptr<FocusSwitch> makeXfconfSwitch(GDBusConnection* bus,
                                                            FocusSwitch::OnSwitched onSwitched);

// KDE: the notification service's Inhibited property, set by the user or by a presentation program.
[[nodiscard]] std::unique_ptr<FocusSwitch> makeInhibitionSwitch(GDBusConnection* bus,
                                                                FocusSwitch::OnSwitched onSwitched);

} // namespace vantrel
