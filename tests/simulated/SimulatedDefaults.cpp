#include "tests/simulated/SimulatedDefaults.h"

namespace vantrel::simulated {

template <typename T>
std::optional<T> SimulatedDefaults::find(std::string_view key) const {
    const auto found = m_values.find(key);
    if (found == m_values.end() || !std::holds_alternative<T>(found->second)) {
        return std::nullopt;
    }
    return std::get<T>(found->second);
}

std::optional<bool> SimulatedDefaults::boolean(std::string_view key) {
    return find<bool>(key);
}

std::optional<std::int64_t> SimulatedDefaults::integer(std::string_view key) {
    return find<std::int64_t>(key);
}

std::optional<double> SimulatedDefaults::number(std::string_view key) {
    if (const auto whole = find<std::int64_t>(key)) {
        return static_cast<double>(*whole);
    }
    return find<double>(key);
}

std::optional<std::string> SimulatedDefaults::text(std::string_view key) {
    return find<std::string>(key);
}

std::optional<Date> SimulatedDefaults::date(std::string_view key) {
    return find<Date>(key);
}

std::optional<DefaultsData> SimulatedDefaults::data(std::string_view key) {
    return find<DefaultsData>(key);
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

void SimulatedDefaults::setChangeHandler(std::function<void()> handler) {
    m_handler = std::move(handler);
}

void SimulatedDefaults::notify() {
    m_queue.post([this] {
        if (m_handler) {
            m_handler();
        }
    });
}

} // namespace vantrel::simulated
