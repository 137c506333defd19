#include "Vantrel/controller/Publisher.h"

#include <vector>

namespace vantrel {

Publisher::ObserverID Publisher::add(std::function<void()> observer) {
    m_observers.emplace(++m_lastID, std::move(observer));
    return m_lastID;
}

void Publisher::remove(ObserverID id) {
    m_observers.erase(id);
}

void Publisher::notifySoon() {
    if (m_isNotifying) {
        return;
    }
    m_isNotifying = true;
    m_queue.post([self = std::weak_ptr(m_self)] {
        if (const auto publisher = self.lock()) {
            (*publisher)->notify();
        }
    });
}

void Publisher::notify() {
    m_isNotifying = false;
    std::vector<ObserverID> ids;
    ids.reserve(m_observers.size());
    for (const auto& [id, observer] : m_observers) {
        ids.push_back(id);
    }
    // An observer may add and remove observers, including itself.
    for (const ObserverID id : ids) {
        const auto found = m_observers.find(id);
        if (found != m_observers.end()) {
            const auto observer = found->second;
            observer();
        }
    }
}

} // namespace vantrel
