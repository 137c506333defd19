#include "Vantrel/controller/StrayReturnFlow.h"

#include "Vantrel/controller/ControllerText.h"
#include "VantrelCore/windows/RestoreEngine.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <string>

namespace vantrel {

namespace {

// In seconds. The system updates its window lists some time after the Space has changed.
constexpr double lookTimes[] = {0.5, 2};

using Strays = std::map<WindowID, StrayPlaces::Stray>;

// Moves the strays that are now visible and have not moved since. Returns those that are in place.
std::vector<WindowID> putBackWhatCanBeSeen(const Strays& strays, RestoreEngine::Sizes sizes,
                                           const DeskCapture::Scope& scope, Desk& desk,
                                           const MovePermit& permit) {
    std::vector<WindowOrder> orders;
    for (const LiveWindow& window : DeskCapture::windows(desk, scope, DeskCapture::Reach::visible)) {
        const auto stray = strays.find(window.id);
        if (stray != strays.end() && stray->second.isLeft(window.record.frame)) {
            orders.push_back(RestoreEngine::place(window.id, stray->second.saved.frame, sizes));
        }
    }
    const auto outcomes = desk.arrange(orders, permit);
    std::vector<WindowID> settled;
    for (std::size_t i = 0; i < orders.size(); ++i) {
        const WindowID window = orders[i].window;
        if (RestoreEngine::isReached(outcomes[i].frame, strays.at(window).saved.frame, sizes)) {
            settled.push_back(window);
        }
    }
    return settled;
}

} // namespace

void StrayReturnFlow::spaceChanged() {
    m_looks.clear();
    m_turn.reset();
    if (m_context.strays.of(m_context.state().configID).empty()) {
        return;
    }
    for (const double seconds : lookTimes) {
        m_looks.push_back(m_context.ports.mainQueue.after(seconds, [this] { awaitTurn(); }));
    }
}

bool StrayReturnFlow::isWanted() {
    return m_context.state().enabled && m_context.settings.autoRestore() && m_context.entitledToRun() &&
           !m_context.gate.isAway() && m_context.isDeskCurrent() &&
           !m_context.strays.of(m_context.state().configID).empty();
}

void StrayReturnFlow::awaitTurn() {
    m_turn = m_context.moves.inTurn([this] { putBack(); });
}

void StrayReturnFlow::putBack() {
    if (!isWanted()) {
        return;
    }
    const std::string configID = m_context.state().configID;
    const auto strays = m_context.strays.of(configID);
    const auto sizes =
        m_context.settings.restoreSizes() ? RestoreEngine::Sizes::restore : RestoreEngine::Sizes::leave;
    m_context.runMove(
        [strays, sizes, scope = m_context.captureScope(m_context.state().displays),
         &desk = m_context.ports.desk](const MovePermit& permit) {
            return putBackWhatCanBeSeen(strays, sizes, scope, desk, permit);
        },
        [this, configID, strays](const std::optional<std::vector<WindowID>>& settled) {
            if (!settled || settled->empty()) {
                return;
            }
            std::vector<std::string> names;
            for (const WindowID window : *settled) {
                const WindowRecord& saved = strays.at(window).saved;
                names.push_back(fmt::format("{} \"{}\"", saved.appName, saved.title));
            }
            m_context.log(fmt::format("restore: put {} of this Space in place: {}",
                                      ControllerText::windows(settled->size()), fmt::join(names, ", ")));
            m_context.strays.settle(configID, *settled);
        });
}

} // namespace vantrel
