#include "VantrelCore/text/RestoreCauseCaption.h"

#include "VantrelCore/text/RestoreReasonCaption.h"
#include "VantrelCore/text/Translation.h"

#include <string_view>

namespace vantrel::RestoreCauseCaption {

namespace {

// In "switch layout (Evening)" it is "Evening"; empty without any.
std::string_view inBrackets(std::string_view reason) {
    const auto open = reason.find(" (");
    const auto close = reason.rfind(')');
    return open == std::string_view::npos || close == std::string_view::npos || close < open + 2
               ? std::string_view()
               : reason.substr(open + 2, close - open - 2);
}

// A recorded reason can end with what became of the restore.
std::string_view cause(std::string_view reason) {
    constexpr std::string_view abandoned = " (abandoned: the displays changed)";
    if (reason.ends_with(abandoned)) {
        reason.remove_suffix(abandoned.size());
    }
    return reason;
}

} // namespace

Kind kind(const RestoreLog::Entry& entry) {
    const std::string_view reason = cause(entry.reason);
    const auto isAbout = [&](std::string_view start) { return reason.starts_with(start); };
    return isAbout("undo")                                                                   ? Kind::undo
           : entry.sceneName                                                                 ? Kind::scene
           : isAbout("display change") || reason.ends_with(" reconnected")                   ? Kind::displays
           : isAbout("restore now")                                                          ? Kind::asked
           : isAbout("switch layout") || isAbout("apply layout") || isAbout("swap displays") ? Kind::layout
           : isAbout("pinned")                                                               ? Kind::pinned
           : isAbout("stash")                                                                ? Kind::stash
                                                                                             : Kind::other;
}

std::string title(const RestoreLog::Entry& entry) {
    const std::string_view reason = cause(entry.reason);
    switch (kind(entry)) {
    case Kind::displays:
        return reason.starts_with("display change") ? tr("The displays changed")
                                                    : RestoreReasonCaption::caption(reason);
    case Kind::scene:
        return trf("Scene “{}”", *entry.sceneName);
    case Kind::asked:
        return tr("Restore now");
    case Kind::layout:
        return reason.starts_with("swap") ? tr("Displays swapped") : trf("Layout “{}”", inBrackets(reason));
    case Kind::pinned:
        return tr("Pinned layout kept");
    case Kind::stash:
        return tr("Stash brought back");
    case Kind::undo:
        return tr("Undo");
    case Kind::other:
        break;
    }
    return entry.reason.empty() ? tr("Restore") : RestoreReasonCaption::caption(entry.reason);
}

} // namespace vantrel::RestoreCauseCaption
