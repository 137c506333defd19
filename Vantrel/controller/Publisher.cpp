#include "Vantrel/controller/Publisher.h"

#include <utility>
#include <vector>

namespace vantrel {

Publisher::ObserverID Publisher::add(Observer observer) {
    m_observers.emplace(++m_lastID, std::move(observer));
    return m_lastID;
}

void Publisher::remove(ObserverID id) {
    m_observers.erase(id);
}

void Publisher::noteIf(bool hasChanged, Topic topic) {
    if (!hasChanged) {
        return;
    }
    ++m_versions[static_cast<std::size_t>(topic)];
    if (m_changed == Topics{}) {
        m_queue.post([self = std::weak_ptr(m_self)] {
            if (const auto publisher = self.lock()) {
                (*publisher)->notify();
            }
        });
    }
    m_changed.add(topic);
}

void Publisher::notify() {
    const Topics changed = std::exchange(m_changed, {});
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
            observer(changed);
        }
    }
}

} // namespace vantrel
