// Holds the published state and notifies observers when it changes.
#pragma once

#include "Vantrel/controller/PublishedState.h"
#include "VantrelCore/ports/MainQueue.h"

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <tuple>
#include <utility>

namespace vantrel {

// Lives on the main thread. Observers are called from the main queue soon after a change, once for all
// changes of one turn, so they can call the controller without finding it in an intermediate state.
class Publisher {
public:
    using ObserverID = std::uint64_t;
    using Observer = std::function<void(Topics changed)>;

    explicit Publisher(MainQueue& queue) : m_queue(queue) {}

    [[nodiscard]] const PublishedState& state() const { return m_state; }

    // Incremented when the topic changes.
    [[nodiscard]] std::int64_t version(Topic topic) const {
        return m_versions[static_cast<std::size_t>(topic)];
    }

    // Changes these parts of the state in place; references to unchanged parts stay valid. Other parts are
    // neither copied nor compared.
    template <typename... Parts, typename Change>
    void publish(Change&& change) {
        const std::tuple<const Parts...> before(static_cast<const Parts&>(m_state)...);
        std::forward<Change>(change)(static_cast<Parts&>(m_state)...);
        (noteIf(std::get<const Parts>(before) != static_cast<const Parts&>(m_state), Parts::topic), ...);
    }

    // The observer receives the topics that have changed since it was last called.
    ObserverID add(Observer observer);
    void remove(ObserverID id);

private:
    void noteIf(bool hasChanged, Topic topic);
    void notify();

    MainQueue& m_queue;
    PublishedState m_state;
    std::array<std::int64_t, topicCount> m_versions{};
    // Not yet reported.
    Topics m_changed;
    std::map<ObserverID, Observer> m_observers;
    ObserverID m_lastID = 0;
    // Expires with the publisher, so that a pending notification does nothing.
    std::shared_ptr<Publisher*> m_self = std::make_shared<Publisher*>(this);
};

} // namespace vantrel
