// Chooses the panel's messages, the most urgent first.
#pragma once

#include "Vantrel/interface/panel/PanelContent.h"

namespace vantrel::PanelMessages {

// `moved` is the number of windows that a restore would move now.
[[nodiscard]] std::vector<PanelContent::Message> of(const PublishedState& state,
                                                    const PanelContent::Context& context, std::size_t moved);

} // namespace vantrel::PanelMessages
