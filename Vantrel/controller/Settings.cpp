#include "Vantrel/controller/Settings.h"

namespace vantrel {

bool Settings::autoRestore() const {
    return m_defaults.boolean(autoRestoreKey).value_or(true);
}

double Settings::settleDelay() const {
    const double seconds = m_defaults.number(settleDelayKey).value_or(defaultSettleDelay);
    return seconds >= 0 && seconds <= longestSettleDelay ? seconds : defaultSettleDelay;
}

bool Settings::restoreSizes() const {
    return m_defaults.boolean(restoreSizesKey).value_or(true);
}

} // namespace vantrel
