// One place where a desktop keeps its "do not disturb".
#pragma once

#include "Vantrel/platform/gio/GioHandle.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {

// Made, used and destroyed on one thread whose default main context runs.
class FocusSwitch {
public:
    // Called on that thread when the desktop says that it was switched, perhaps to what it was.
    using OnSwitched = std::function<void(bool isOn)>;

    FocusSwitch() = default;
    FocusSwitch(const FocusSwitch&) = delete;
    FocusSwitch& operator=(const FocusSwitch&) = delete;
    virtual ~FocusSwitch() = default;

    // As it is now; off where the desktop does not say.
    [[nodiscard]] virtual bool isOn() = 0;
};

// A key of the settings of GNOME, Cinnamon and MATE.
struct FocusSetting {
    const char* schema;
    const char* key;
    // The key's value while notifications are kept away.
    bool valueWhenOn;
};

// Null where this machine has no such setting.
[[nodiscard]] std::unique_ptr<FocusSwitch> makeSettingSwitch(const FocusSetting& setting,
                                                             FocusSwitch::OnSwitched onSwitched);

// Xfce: the notification daemon's property in Xfconf.
[[nodiscard]] std::unique_ptr<FocusSwitch> makeXfconfSwitch(GDBusConnection* bus,
                                                            FocusSwitch::OnSwitched onSwitched);

// KDE: the notification service says that it is inhibited, by the user or by a program that shows slides.
[[nodiscard]] std::unique_ptr<FocusSwitch> makeInhibitionSwitch(GDBusConnection* bus,
                                                                FocusSwitch::OnSwitched onSwitched);

} // namespace vantrel
