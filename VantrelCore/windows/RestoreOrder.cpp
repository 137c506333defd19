#include "VantrelCore/windows/RestoreOrder.h"

#include <utility>

namespace vantrel::RestoreOrder {

std::vector<std::vector<std::string>> waves(const std::vector<std::string>& bundleIDs,
                                            const std::set<std::string>& restoreLast) {
    std::vector<std::string> first;
    std::vector<std::string> last;
    for (const auto& bundleID : bundleIDs) {
        (restoreLast.contains(bundleID) ? last : first).push_back(bundleID);
    }
    std::vector<std::vector<std::string>> result;
    for (auto* wave : {&first, &last}) {
        if (!wave->empty()) {
            result.push_back(std::move(*wave));
        }
    }
    return result;
}

} // namespace vantrel::RestoreOrder
