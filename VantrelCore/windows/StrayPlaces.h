// Where windows belong that a restore could not put there. Learning keeps their remembered places, so that a
// failure is not learned as the user's wish, until somebody moves them.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/model/SessionNotes.h"
#include "VantrelCore/windows/LiveWindow.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <map>
#include <string>
#include <vector>

namespace vantrel {

class StrayPlaces {
public:
    // A window of the layout that could not be reached, as it is on another Space.
    struct Unreached {
        std::size_t saved = 0;
        WindowID window{};
        Rect frame;
    };

    struct Stray {
        WindowRecord saved;
        // Where the restore left it.
        Rect left;

        // Whether nobody has moved it since.
        [[nodiscard]] bool isLeft(const Rect& frame) const;
    };

    // What a restore of `layout` has achieved.
    void note(const Layout& layout, const RestoreReport& report,
              const std::vector<Unreached>& unreached = {});

    // The strays of a desk.
    [[nodiscard]] std::map<WindowID, Stray> of(const std::string& configID) const;
    // These windows have been put in place.
    void settle(const std::string& configID, const std::vector<WindowID>& windows);

    // The user wants the desk as it is.
    void forget(const std::string& configID) { m_strays.erase(configID); }

    // The desk has a new identifier, and so have its displays: new ones by their former ones.
    void moveDesk(const std::string& from, const std::string& to,
                  const std::map<std::string, std::string>& displays);

    // For the next run of this program in the same session.
    void keepIn(SessionNotes& notes) const;
    void adopt(const SessionNotes& notes);

    // Takes a capture of the desk. Windows that still stand where a restore left them get their remembered
    // places; those that have moved since, or were closed, are strays no longer. One that cannot be seen was
    // not moved by the user.
    [[nodiscard]] std::vector<LiveWindow> corrected(const std::string& configID,
                                                    std::vector<LiveWindow> windows);

private:
    std::map<std::string, std::map<WindowID, Stray>> m_strays;
};

} // namespace vantrel
