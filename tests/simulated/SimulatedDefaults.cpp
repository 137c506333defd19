#include "tests/simulated/SimulatedDefaults.h"

namespace vantrel::simulated {

std::optional<double> SimulatedDefaults::number(std::string_view key) {
    if (const auto whole = find<std::int64_t>(key)) {
        return static_cast<double>(*whole);
    }
    return find<double>(key);
}

bool SimulatedDefaults::set(std::string_view key, const DefaultsValue& value) {
    if (m_unwritable && key.find(*m_unwritable) != std::string_view::npos) {
        return false;
    }
    m_values.insert_or_assign(std::string(key), value);
    notify();
    return true;
}

bool SimulatedDefaults::remove(std::string_view key) {
    if (m_unwritable && key.find(*m_unwritable) != std::string_view::npos) {
        return false;
    }
    if (const auto found = m_values.find(key); found != m_values.end()) {
        m_values.erase(found);
        notify();
    }
    return true;
}

void SimulatedDefaults::edit(const SettingsFile& file) {
    m_file = file;
    for (const SettingsLine& line : file.lines) {
        if (line.value) {
            m_values.insert_or_assign(line.key, *line.value);
        }
    }
    notify();
}

void SimulatedDefaults::notify() {
    m_queue.post([this] {
        if (m_handler) {
            m_handler();
        }
    });
}

} // namespace vantrel::simulated
