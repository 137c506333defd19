#include "Vantrel/controller/RestoreFollowUpFlow.h"

#include "Vantrel/controller/ControllerText.h"
#include "Vantrel/controller/PerApplication.h"

namespace vantrel {

namespace {

using RestoreFollowUp::Moved;

// Seconds after the end of the restore.
constexpr double lookTimes[] = {1, 3, 7};

// True when the window was displaced and stands at its place again.
bool putBack(const Moved& window, RestoreEngine::Sizes sizes) {
    if (!RestoreFollowUp::isDisplaced(RestoreFollowUp::visibleFrame(window), window.target, sizes)) {
        return false;
    }
    RestoreEngine::place(window.target, window.handle, sizes);
    return RestoreEngine::isReached(window.handle.frame(), window.target, sizes);
}

// The report's items of the windows that were put back.
std::vector<std::size_t> putBackDisplaced(const std::vector<Moved>& landed, RestoreEngine::Sizes sizes,
                                          Background& background) {
    // Not of bool, whose elements share bytes: each worker writes its own.
    std::vector<char> isPutBack(landed.size());
    PerApplication::forEach(landed, background, [&](std::size_t index) {
        isPutBack[index] = putBack(landed[index], sizes) ? 1 : 0;
    });
    std::vector<std::size_t> items;
    for (std::size_t i = 0; i < landed.size(); ++i) {
        if (isPutBack[i] != 0) {
            items.push_back(landed[i].item);
        }
    }
    return items;
}

} // namespace

void RestoreFollowUpFlow::begin(std::vector<Moved> landed) {
    end();
    m_landed = std::move(landed);
    if (m_landed.empty()) {
        return;
    }
    for (const double seconds : lookTimes) {
        m_looks.push_back(m_context.ports.mainQueue.after(seconds, [this, epoch = m_epoch] {
            if (epoch == m_epoch) {
                look();
            }
        }));
    }
}

void RestoreFollowUpFlow::end() {
    ++m_epoch;
    m_landed.clear();
    m_looks.clear();
}

void RestoreFollowUpFlow::look() {
    if (!m_context.snapshotsSuspended || m_context.axWorkInFlight() || !m_context.state().enabled) {
        return;
    }
    const auto sizes =
        m_context.settings.restoreSizes() ? RestoreEngine::Sizes::restore : RestoreEngine::Sizes::leave;
    m_context.beginPass();
    m_context.inBackground(
        WorkPriority::userInitiated,
        [landed = m_landed, sizes, &background = m_context.ports.background] {
            return putBackDisplaced(landed, sizes, background);
        },
        [this](const std::vector<std::size_t>& items) {
            if (!items.empty()) {
                m_context.log("restore follow-up: put back " + ControllerText::windows(items.size()));
                m_onPutBack(items);
            }
            m_context.endPass();
        });
}

} // namespace vantrel
