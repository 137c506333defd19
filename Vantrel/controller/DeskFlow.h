// Publishes, renames and forgets remembered desks.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/ControllerStores.h"
#include "Vantrel/controller/LayoutChange.h"

#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class DeskFlow {
public:
    // Publishes the desks, now and whenever what is published about them changes. The stores outlive this
    // object.
    DeskFlow(ControllerContext& context, ControllerStores& stores);
    ~DeskFlow();
    DeskFlow(const DeskFlow&) = delete;
    DeskFlow& operator=(const DeskFlow&) = delete;

    // Why this desk cannot have this name; none if it can.
    [[nodiscard]] std::optional<LayoutChange> problemWithName(const std::string& configID,
                                                              const std::string& newName) const;
    // Gives a desk a name chosen by the user, which then stays.
    LayoutChange rename(const std::string& configID, const std::string& newName);

    // Removes the desk's layouts and stashes and which scene was last applied there; scenes stay. The present
    // desk is then learned anew. Undone by RecentDeletions, which also restores the windows of the present
    // desk.
    LayoutChange forget(const std::string& configID);

    // Called after stored records of several kinds have changed.
    std::function<void()> onStoredChanged = [] {};
    // Called when a desk that is present is remembered again, to restore its active layout.
    std::function<void()> onPresentDeskPutBack = [] {};

private:
    struct Forgotten {
        LayoutStore::DeskRecords records;
        std::vector<Stash> stashes;
        std::optional<std::string> lastAppliedScene;
    };

    void show();
    std::expected<void, std::string> putBack(const std::string& configID, const Forgotten& forgotten);
    void storedChanged();

    ControllerContext& m_context;
    ControllerStores& m_stores;
    Publisher::ObserverID m_observer;
};

} // namespace vantrel
