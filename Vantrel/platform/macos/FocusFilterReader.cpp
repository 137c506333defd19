#include "Vantrel/platform/macos/FocusFilterReader.h"

#include <utility>

namespace vantrel {

void FocusFilterReader::filterRan(const std::optional<std::string>& name) {
    const auto before = std::exchange(m_name, name && !name->empty() ? name : std::nullopt);
    if (m_name && m_name != before && m_handler) {
        m_handler(*m_name);
    }
}

} // namespace vantrel
