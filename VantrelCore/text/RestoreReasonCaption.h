// Why windows were moved, in the user's language. History and log have it in English.
#pragma once

#include <string>
#include <string_view>

namespace vantrel::RestoreReasonCaption {

// For a reason as history stores it, such as "display change" or "switch layout (Home)". An unknown one stays
// as it is.
[[nodiscard]] std::string caption(std::string_view reason);

} // namespace vantrel::RestoreReasonCaption
