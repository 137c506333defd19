#include "VantrelCore/windows/AXApps.h"

namespace vantrel::AXApps {

std::vector<RunningApp> regularApps(std::vector<RunningApp> running,
                                    std::optional<std::string_view> excluding) {
    std::erase_if(running, [&](const RunningApp& app) {
        return app.policy != ActivationPolicy::regular || !app.bundleID || app.bundleID == excluding;
    });
    return running;
}

} // namespace vantrel::AXApps
