// The user's settings as the controller reads them: key, type and default of each.
#pragma once

#include "VantrelCore/ports/UserDefaults.h"

namespace vantrel {

// Each read asks the defaults afresh. A key that was never written, or holds a value of another type, yields
// its default.
class Settings {
public:
    static constexpr const char* autoRestoreKey = "autoRestore";
    static constexpr const char* settleDelayKey = "settleDelay";
    static constexpr const char* restoreSizesKey = "restoreSizes";

    static constexpr double defaultSettleDelay = 0.5;
    // A longer settle delay, in seconds, is taken for a mistake.
    static constexpr double longestSettleDelay = 60;

    explicit Settings(UserDefaults& defaults) : m_defaults(defaults) {}

    // Put windows back when the displays have settled.
    [[nodiscard]] bool autoRestore() const;

    // Seconds without a display event after which the displays count as settled. A value that is negative,
    // longer than longestSettleDelay or not a number counts as absent.
    [[nodiscard]] double settleDelay() const;

    // Put sizes back as well as positions.
    [[nodiscard]] bool restoreSizes() const;

private:
    UserDefaults& m_defaults;
};

} // namespace vantrel
