#include "VantrelCore/text/UsageReceiptCopy.h"
#include "VantrelCore/text/NumberText.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel::UsageReceiptCopy {

namespace {

std::string times(std::int64_t count) {
    return trn("once", "{1} times", count, grouped(count));
}

} // namespace

std::string sentence(const UsageStats& stats) {
    std::vector<std::string> deeds;
    if (stats.restores > 0) {
        deeds.push_back(trf("restored your desk {}", times(stats.restores)));
    }
    if (stats.sceneSwitches > 0) {
        deeds.push_back(trf("switched scenes {}", times(stats.sceneSwitches)));
    }
    if (stats.windowsVantrel > 0) {
        deeds.push_back(trn("put {1} window back so you did not have to",
                            "put {1} windows back so you did not have to", stats.windowsVantrel,
                            grouped(stats.windowsVantrel)));
    }
    return deeds.empty() ? "" : trf("In your 7 days, Vantrel {}.", join(deeds));
}

std::string grouped(std::int64_t number) {
    return NumberText::grouped(number);
}

std::string join(const std::vector<std::string>& parts) {
    std::string joined;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) {
            joined += i + 1 == parts.size() ? tr(" and ") : ", ";
        }
        joined += parts[i];
    }
    return joined;
}

} // namespace vantrel::UsageReceiptCopy
