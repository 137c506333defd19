#include "VantrelCore/commands/StatusItemMenu.h"

#include "VantrelCore/text/Translation.h"
#include "VantrelCore/updates/UpdateOffer.h"

#include <algorithm>
#include <fmt/format.h>
#include <set>
#include <utility>

namespace vantrel::StatusItemMenuBuilder {

using Kind = StatusItemMenuEntry::Kind;

std::vector<StatusItemMenuEntry> build(const std::vector<StatusItem::SceneEntry>& scenes,
                                       const std::optional<std::string>& undoReason) {
    std::vector<StatusItemMenuEntry> entries;
    for (const StatusItem::SceneEntry& scene : scenes) {
        entries.push_back(StatusItemMenuEntry::scene(scene.id, scene.name));
    }
    entries.push_back({Kind::restoreNow});
    if (undoReason) {
        entries.push_back(StatusItemMenuEntry::undoLastRestore(*undoReason));
    }
    for (const Kind kind : {Kind::separator, Kind::layouts, Kind::settings, Kind::quit}) {
        entries.push_back({kind});
    }
    return entries;
}

static std::vector<StatusItemMenuEntry> notices(const Situation& situation) {
    using Notice = StatusItem::Notice::Kind;
    std::vector<StatusItemMenuEntry> found;
    const auto add = [&](Notice kind, std::string title) {
        found.push_back(StatusItemMenuEntry::notice(kind, std::move(title)));
    };
    if (situation.isTrialOver) {
        add(Notice::trialEnded, tr("Trial ended"));
        add(Notice::purchase, tr("Get Vantrel · $19"));
    }
    for (const std::string& trouble : situation.troubles) {
        add(Notice::filesInTrouble, trouble);
    }
    if (situation.sameDesk) {
        add(Notice::sameDesk, trf("Same Desk as “{}”", *situation.sameDesk));
    }
    if (situation.latestAvailable) {
        add(Notice::updateAvailable, UpdateOffer::caption(*situation.latestAvailable));
    }
    if (situation.isMissionControlLosing) {
        add(Notice::fixMissionControl, situation.isMissionControlFixedAtLogin
                                           ? tr("Keep Spaces in Place (from the Next Login)")
                                           : tr("Keep Spaces in Place"));
    }
    if (!found.empty()) {
        found.push_back({Kind::separator});
    }
    return found;
}

// What has shortcuts.
static std::optional<HotKeySurface> surface(const StatusItemMenuEntry& entry) {
    using Surface = HotKeySurface::Kind;
    switch (entry.kind) {
    case Kind::scene:
        return HotKeySurface::scene(entry.sceneEntry.id);
    case Kind::restoreNow:
        return HotKeySurface{Surface::fixedRestore, {}};
    case Kind::saveNow:
        return HotKeySurface{Surface::fixedSave, {}};
    case Kind::stash:
    case Kind::bringBack:
        return HotKeySurface{Surface::stash, {}};
    case Kind::undoLastRestore:
        return HotKeySurface{Surface::undo, {}};
    default:
        return std::nullopt;
    }
}

static std::optional<HotKeyCombo> shortcut(const StatusItemMenuEntry& entry, const Situation& situation) {
    const auto wanted = surface(entry);
    const auto found = std::ranges::find_if(
        situation.shortcuts, [&](const TakenHotKey& taken) { return taken.surface == wanted; });
    return found == situation.shortcuts.end() ? std::nullopt : std::optional(found->combo);
}

std::vector<StatusItemMenuEntry> complete(const std::vector<StatusItemMenuEntry>& entries,
                                          const Situation& situation) {
    auto all = notices(situation);
    if (!entries.empty() && entries.front().kind == Kind::scene) {
        all.push_back({Kind::heading});
    }
    for (const StatusItemMenuEntry& entry : entries) {
        if (entry.kind == Kind::restoreNow && !all.empty() && all.back().kind == Kind::scene) {
            all.push_back({Kind::separator});
        } else if (entry.kind == Kind::separator) {
            all.push_back({situation.isOn ? Kind::pause : Kind::resume});
        } else if (entry.kind == Kind::quit && situation.canCheckForUpdates) {
            all.push_back(StatusItemMenuEntry::notice(StatusItem::Notice::Kind::checkForUpdates,
                                                      tr("Check for Updates…")));
        }
        all.push_back(entry);
        if (entry.kind == Kind::scene) {
            all.back().isApplied = entry.sceneEntry.id == situation.appliedSceneID;
        } else if (entry.kind == Kind::restoreNow) {
            all.push_back({Kind::saveNow});
            all.push_back({situation.isStashed ? Kind::bringBack : Kind::stash});
        }
    }
    for (StatusItemMenuEntry& entry : all) {
        entry.shortcut = shortcut(entry, situation);
    }
    return all;
}

static char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::vector<std::optional<std::size_t>> mnemonics(const std::vector<StatusItemMenuEntry>& entries) {
    std::vector<std::optional<std::size_t>> places(entries.size());
    std::set<char> taken;
    const auto choose = [&](std::size_t index) {
        const std::string text = title(entries[index]);
        const auto isFree = [&](std::size_t at) {
            const char letter = lower(text[at]);
            const bool isPlain = (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
            return isPlain && !taken.contains(letter);
        };
        const auto find = [&](bool onlyFirstLetters) -> std::optional<std::size_t> {
            for (std::size_t at = 0; at < text.size(); ++at) {
                if (isFree(at) && (!onlyFirstLetters || at == 0 || text[at - 1] == ' ')) {
                    return at;
                }
            }
            return std::nullopt;
        };
        places[index] = find(true);
        if (!places[index]) {
            places[index] = find(false);
        }
        if (places[index]) {
            taken.insert(lower(text[*places[index]]));
        }
    };
    // Scenes come last, so that they never change a command's letter.
    for (const bool isScenesTurn : {false, true}) {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            const bool isChosen = entries[i].kind != Kind::separator && entries[i].kind != Kind::heading;
            if (isChosen && (entries[i].kind == Kind::scene) == isScenesTurn) {
                choose(i);
            }
        }
    }
    return places;
}

// An ellipsis marks entries that open a window.
std::string title(const StatusItemMenuEntry& entry) {
    switch (entry.kind) {
    case Kind::scene:
        return entry.sceneEntry.name;
    case Kind::undoLastRestore:
        return tr("Undo last restore");
    case Kind::restoreNow:
        return tr("Restore now");
    case Kind::layouts:
        return tr("Layouts…");
    case Kind::settings:
        return tr("Settings…");
    case Kind::quit:
        return tr("Quit Vantrel");
    case Kind::notice:
        return entry.noticeEntry.title;
    case Kind::heading:
        return tr("Scenes");
    case Kind::saveNow:
        return tr("Save now");
    case Kind::stash:
        return tr("Stash");
    case Kind::bringBack:
        return tr("Bring back");
    case Kind::pause:
        return tr("Pause");
    case Kind::resume:
        return tr("Resume");
    case Kind::separator:
        break;
    }
    return "";
}

} // namespace vantrel::StatusItemMenuBuilder
