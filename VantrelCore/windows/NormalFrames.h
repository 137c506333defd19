// Where maximised and full-screen windows return to. Window systems do not say, so this remembers where each
// window was last seen as an ordinary one.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/model/SessionNotes.h"
#include "VantrelCore/windows/LiveWindow.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <map>
#include <set>
#include <vector>

namespace vantrel {

class NormalFrames {
public:
    // Takes a capture of every window, front to back. Forgets windows that no longer exist.
    void remember(const std::vector<LiveWindow>& windows);
    // Takes what a restore of the layout has put back, until the next capture.
    void remember(const Layout& layout, const RestoreReport& report);

    // Fills in `normalFrame` for maximised and full-screen windows, where known.
    [[nodiscard]] WindowRecord recordOf(const LiveWindow& window) const;

    // For the next run of this program in the same session. It sees for itself where ordinary windows are.
    void keepIn(SessionNotes& notes) const;
    void adopt(const SessionNotes& notes) { m_frames = notes.normalFrames; }

private:
    std::map<WindowID, Rect> m_frames;
    std::set<WindowID> m_stretched;
};

} // namespace vantrel
