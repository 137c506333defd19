#include "Vantrel/commands/terminal/HistoryText.h"

#include "Vantrel/commands/terminal/TextCells.h"
#include "VantrelCore/text/RelativeTimeCaption.h"
#include "VantrelCore/text/RestoreLogFormatting.h"
#include "VantrelCore/text/RestoreReasonCaption.h"

#include <fmt/format.h>

namespace vantrel::HistoryText {

namespace {

// Captions contain middle dots, which plain terminals cannot show.
std::string shown(std::string text, const DeskDrawing::Options& options) {
    if (options.characters == DeskDrawing::Characters::ascii) {
        constexpr std::string_view dot = " · ";
        for (auto at = text.find(dot); at != std::string::npos; at = text.find(dot, at)) {
            text.replace(at, dot.size(), ", ");
        }
    }
    return DeskDrawing::line(text, options);
}

std::string entryLine(const RestoreLog::Entry& entry, Date now) {
    auto line = fmt::format("{} · {}", RelativeTimeCaption::caption(entry.date, now),
                            RestoreReasonCaption::caption(entry.reason));
    if (entry.sceneName) {
        line += fmt::format(" · {}", *entry.sceneName);
    }
    return line + fmt::format(" · {} · {}", RestoreLogFormatting::summary(entry),
                              RestoreLogFormatting::elapsedCaption(entry.elapsed));
}

} // namespace

std::string history(const RestoreLog& log, Date now, const DeskDrawing::Options& options) {
    constexpr int appColumns = 20;
    std::string text;
    for (const RestoreLog::Entry& entry : log.entries) {
        if (!text.empty()) {
            text += '\n';
        }
        text += shown(entryLine(entry, now), options);
        for (const RestoreLog::Item& item : RestoreLogFormatting::ordered(entry.items)) {
            text += shown(
                fmt::format("  {}  {}{}{}",
                            TextCells::padded(item.appName, appColumns, DeskDrawing::ellipsis(options)),
                            RestoreLogFormatting::label(item), item.title.empty() ? "" : ": ", item.title),
                options);
        }
    }
    return text;
}

} // namespace vantrel::HistoryText
