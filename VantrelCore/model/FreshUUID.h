// A new random identifier for a record: a canonical UUID string in upper case.
#pragma once

#include <string>

namespace vantrel {

[[nodiscard]] std::string freshUUID();

} // namespace vantrel
