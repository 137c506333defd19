#include "Vantrel/controller/PerApplication.h"

#include <map>
#include <string_view>
#include <utility>

namespace vantrel::PerApplication {

void forEach(const std::vector<RestoreFollowUp::Moved>& windows, Background& background,
             const std::function<void(std::size_t index)>& work) {
    std::map<std::string_view, std::vector<std::size_t>> byApp;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        byApp[windows[i].bundleID].push_back(i);
    }
    std::vector<std::vector<std::size_t>> apps;
    apps.reserve(byApp.size());
    for (auto& [bundleID, indices] : byApp) {
        apps.push_back(std::move(indices));
    }
    background.concurrentPerform(apps.size(), [&](std::size_t app) {
        for (const std::size_t index : apps[app]) {
            work(index);
        }
    });
}

} // namespace vantrel::PerApplication
