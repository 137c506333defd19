#include "VantrelCore/text/RestoreReasonCaption.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <array>
#include <optional>

namespace vantrel::RestoreReasonCaption {

namespace {

constexpr std::array known{
    marked("display change"),
    marked("swap displays"),
    marked("pinned enforcement"),
    marked("scene"),
    marked("stash"),
    marked("trigger schedule"),
    marked("trigger calendar event"),
    marked("trigger focus"),
    marked("Undone"),
    // What asked, in "restore now (menu)".
    marked("menu"),
    marked("hotkey"),
    marked("shortcut"),
    marked("command"),
};

std::optional<std::string_view> between(std::string_view text, std::string_view begin, std::string_view end) {
    if (text.size() < begin.size() + end.size() || !text.starts_with(begin) || !text.ends_with(end)) {
        return std::nullopt;
    }
    return text.substr(begin.size(), text.size() - begin.size() - end.size());
}

// The names of displays, joined by the flow that noticed them.
std::string joined(std::string_view names) {
    constexpr std::string_view separator = " and ";
    std::string text;
    for (auto at = names.find(separator); at != std::string_view::npos; at = names.find(separator)) {
        text.append(names.substr(0, at)).append(tr(" and "));
        names.remove_prefix(at + separator.size());
    }
    return text.append(names);
}

} // namespace

std::string caption(std::string_view reason) {
    if (const auto rest = between(reason, "", " (abandoned: the displays changed)")) {
        return trf("{} (abandoned: the displays changed)", caption(*rest));
    }
    if (const auto undone = between(reason, "undo (", ")")) {
        return trf("undo ({})", caption(*undone));
    }
    if (const auto source = between(reason, "restore now (", ")")) {
        return trf("restore now ({})", caption(*source));
    }
    if (const auto name = between(reason, "switch layout (", ")")) {
        return trf("switch layout ({})", *name);
    }
    if (const auto name = between(reason, "apply layout (", ")")) {
        return trf("apply layout ({})", *name);
    }
    if (const auto names = between(reason, "", " reconnected")) {
        return trf("{} reconnected", joined(*names));
    }
    const auto* const found =
        std::ranges::find(known, reason, [](const char* each) { return std::string_view(each); });
    return found == known.end() ? std::string(reason) : tr(*found);
}

} // namespace vantrel::RestoreReasonCaption
