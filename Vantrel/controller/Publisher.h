// Holds the published state and notifies observers when it changes.
#pragma once

#include "Vantrel/controller/PublishedState.h"
#include "VantrelCore/ports/MainQueue.h"

#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace vantrel {

// Lives on the main thread. Observers are called from the main queue soon after a change, once for all
// changes of one turn, so they can call the controller without finding it in an intermediate state.
class Publisher {
public:
    using ObserverID = std::uint64_t;

    explicit Publisher(MainQueue& queue) : m_queue(queue) {}

    [[nodiscard]] const PublishedState& state() const { return m_state; }

    // Changes the state in place; references to unchanged parts stay valid.
    template <typename Change>
    void publish(Change&& change) {
        const PublishedState before = m_state;
        std::forward<Change>(change)(m_state);
        if (m_state != before) {
            notifySoon();
        }
    }

    ObserverID add(std::function<void()> observer);
    void remove(ObserverID id);

private:
    void notifySoon();
    void notify();

    MainQueue& m_queue;
    PublishedState m_state;
    std::map<ObserverID, std::function<void()>> m_observers;
    ObserverID m_lastID = 0;
    bool m_isNotifying = false;
    // Expires with the publisher, so that a pending notification does nothing.
    std::shared_ptr<Publisher*> m_self = std::make_shared<Publisher*>(this);
};

} // namespace vantrel
