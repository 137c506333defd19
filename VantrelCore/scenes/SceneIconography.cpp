#include "VantrelCore/scenes/SceneIconography.h"

#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace vantrel::SceneIconography {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 14> symbolOfKeyword{{
    {"code", "chevron.left.forwardslash.chevron.right"},
    {"deep", "brain.head.profile"},
    {"design", "paintbrush"},
    {"research", "magnifyingglass"},
    {"meet", "bubble.left"},
    {"present", "play.rectangle"},
    {"write", "pencil"},
    {"mail", "envelope"},
    {"music", "music.note"},
    {"stream", "dot.radiowaves.left.and.right"},
    {"video", "video"},
    {"game", "gamecontroller"},
    {"office", "briefcase"},
    {"home", "house"},
}};

} // namespace

std::string_view symbol(std::string_view sceneName) {
    const std::string name = Unicode::lowercased(sceneName);
    const auto* const found = std::ranges::find_if(
        symbolOfKeyword, [&](const auto& entry) { return name.find(entry.first) != std::string::npos; });
    return found == symbolOfKeyword.end() ? defaultSymbol : found->second;
}

} // namespace vantrel::SceneIconography
