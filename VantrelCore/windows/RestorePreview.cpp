#include "VantrelCore/windows/RestorePreview.h"

#include "VantrelCore/model/PlaceTarget.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>

namespace vantrel {

namespace {

using Fate = RestorePreview::Fate;

bool isInPlace(const WindowRecord& saved, const WindowRecord& live, RestoreEngine::Sizes sizes) {
    const auto place = PlaceTarget::of(saved, live);
    return RestoreEngine::isReached(live.frame, saved.frame, sizes) &&
           (!place || place->isReached(live.states, live.desktop));
}

using Counts = std::map<std::string, std::size_t>;

} // namespace

std::size_t RestorePreview::count(Fate fate) const {
    return static_cast<std::size_t>(std::ranges::count(windows, fate, &Window::fate));
}

RestorePreview RestorePreviews::of(const Layout& layout, const WindowPairing::Known& known, const Live& live,
                                   RestoreEngine::Sizes sizes) {
    Counts saved;
    Counts open;
    for (const WindowRecord& window : layout.windows) {
        ++saved[window.bundleID];
    }
    for (const LiveWindow& window : live.windows) {
        ++open[window.record.bundleID];
    }
    const MatchResult matched = WindowPairing::pair(layout.windows, known, live.windows);
    RestorePreview preview;
    for (const WindowRecord& window : layout.windows) {
        preview.windows.push_back(
            {.saved = window,
             .fate = live.running.contains(window.bundleID) ? Fate::noSuchWindow : Fate::notRunning});
    }
    for (const auto& pair : matched.pairs) {
        RestorePreview::Window& window = preview.windows[pair.saved];
        const LiveWindow& now = live.windows[pair.current];
        const std::string& app = window.saved.bundleID;
        window.fate = isInPlace(window.saved, now.record, sizes) ? Fate::inPlace : Fate::wouldMove;
        window.match = {.window = now.id,
                        .by = pair.by,
                        .title = now.record.title,
                        .frame = now.record.frame,
                        .isOnlyOne = saved[app] == 1 && open[app] == 1};
    }
    std::ranges::stable_sort(preview.windows, {},
                             [](const RestorePreview::Window& window) { return window.saved.zOrder; });
    for (const std::size_t index : matched.unmatchedCurrent) {
        preview.unremembered.push_back(live.windows[index].record);
    }
    std::ranges::stable_sort(preview.unremembered, {}, &WindowRecord::zOrder);
    return preview;
}

std::string_view RestorePreviews::text(Fate fate) {
    switch (fate) {
    case Fate::inPlace:
        return tr("in place");
    case Fate::wouldMove:
        return tr("would move");
    case Fate::noSuchWindow:
        return tr("no such window is open");
    case Fate::notRunning:
        return tr("not running");
    case Fate::wouldOpen:
        return tr("would be opened");
    }
    return "";
}

std::string_view RestorePreviews::text(const RestorePreview::Match& match) {
    switch (match.by) {
    case Pairing::sameTitle:
        return tr("same title");
    case Pairing::known:
        return tr("the same window");
    case Pairing::nearTitle:
        return match.isOnlyOne ? tr("only one open") : tr("similar title");
    case Pairing::order:
        break;
    }
    return match.isOnlyOne ? tr("only one open") : tr("same place in the stack");
}

std::string RestorePreviews::summary(const RestorePreview& preview) {
    if (preview.windows.empty()) {
        return tr("Nothing is remembered here yet");
    }
    const auto counted = [&](Fate fate) { return static_cast<std::int64_t>(preview.count(fate)); };
    const auto moving = counted(Fate::wouldMove);
    const auto inPlace = counted(Fate::inPlace);
    const auto opening = counted(Fate::wouldOpen);
    const auto closed = counted(Fate::noSuchWindow) + counted(Fate::notRunning);
    std::vector<std::string> parts;
    if (moving > 0) {
        parts.push_back(trn("{} window would move", "{} windows would move", moving));
    }
    if (inPlace > 0) {
        parts.push_back(trn("{} in place", "{} in place", inPlace));
    }
    if (opening > 0) {
        parts.push_back(trn("{} would be opened", "{} would be opened", opening));
    }
    if (closed > 0) {
        parts.push_back(trn("{} not open", "{} not open", closed));
    }
    return fmt::format("{}", fmt::join(parts, " · "));
}

} // namespace vantrel
