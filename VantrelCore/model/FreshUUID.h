// A new random identifier for a record: canonical UUID text in upper case.
#pragma once

#include <string>

namespace vantrel {

[[nodiscard]] std::string freshUUID();

} // namespace vantrel
