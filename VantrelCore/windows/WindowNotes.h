// Which live window each remembered one is. A note holds for the session only: what a window was called or
// where it stood says nothing certain about it, but while it lives it is the same window.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/model/SessionNotes.h"
#include "VantrelCore/windows/LiveWindow.h"
#include "VantrelCore/windows/RestoreReport.h"
#include "VantrelCore/windows/WindowPairing.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <vector>

namespace vantrel {

// Arrangements are told apart by the second they were captured in, and their windows by their place in the
// stacking order. So a note also applies to copies: for other displays, under other names, in a scene or a
// stash, or with windows left out.
class WindowNotes {
public:
    // Notes are kept for this many arrangements; the one not used for longest goes first.
    static constexpr std::size_t capacity = 512;

    // `layout` was captured from `windows`, or its windows are in the places of its own.
    void note(const Layout& layout, const std::vector<LiveWindow>& windows);

    // The windows that a restore of `layout` found.
    void note(const Layout& layout, const RestoreReport& report);

    // One entry per window of `layout.windows`.
    [[nodiscard]] WindowPairing::Known find(const Layout& layout);

    // The notes used last, up to this many, for the next run of this program in the same session.
    static constexpr std::size_t keptForNextRun = 32;
    void keepIn(SessionNotes& notes) const;
    void adopt(const SessionNotes& notes);

private:
    using Note = SessionNotes::Arrangement;

    [[nodiscard]] static Date capturedAt(const Layout& layout);
    // Puts the layout's note first. False when there is none.
    bool use(const Layout& layout);
    // Creates it if there is none.
    [[nodiscard]] std::map<std::int64_t, WindowID>& noteFor(const Layout& layout);

    // The one used last comes first.
    std::list<Note> m_notes;
};

} // namespace vantrel
