// The commands that can have a keyboard shortcut, by the names that vantrelctl and the session bus use.
#pragma once

#include "VantrelCore/commands/HotKeySurface.h"

#include <array>
#include <utility>

namespace vantrel::HotKeyNames {

inline constexpr std::array<std::pair<HotKeySurface::Kind, const char*>, 5> commands{
    {{HotKeySurface::Kind::fixedRestore, "restore"},
     {HotKeySurface::Kind::fixedSave, "save"},
     {HotKeySurface::Kind::stash, "stash"},
     {HotKeySurface::Kind::undo, "undo"},
     {HotKeySurface::Kind::quickSwitcher, "quickSwitcher"}}};

} // namespace vantrel::HotKeyNames
