#include "VantrelCore/model/AppFacts.h"

#include "VantrelCore/text/RestoreLogFormatting.h"
#include "VantrelCore/text/Translation.h"

#include <cmath>

namespace vantrel::AppFactsText {

std::string sizes(const AppSizeBehavior::Classification& sizes) {
    if (std::holds_alternative<AppSizeBehavior::FixedSize>(sizes)) {
        return tr("Keeps one fixed size");
    }
    if (const auto* const clamped = std::get_if<AppSizeBehavior::MinClamped>(&sizes)) {
        return trf("Never smaller than {} × {}", std::round(clamped->size.width),
                   std::round(clamped->size.height));
    }
    return "";
}

std::string summary(const AppFacts& facts) {
    std::string text = sizes(facts.sizes);
    if (facts.reliability) {
        text += (text.empty() ? "" : " · ") + RestoreLogFormatting::reliabilitySummary(*facts.reliability);
    }
    return text;
}

} // namespace vantrel::AppFactsText
