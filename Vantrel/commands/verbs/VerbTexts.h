// What the verbs print of their replies: sentences with words of the reply in them, and the texts of
// messages.
#pragma once

#include "Vantrel/commands/verbs/VerbCall.h"

#include <concepts>
#include <string>
#include <utility>

namespace vantrel::VerbTexts {

// A line with the reply's strings in place of "{key}", and what the user typed for a word in place of
// "{:word}".
[[nodiscard]] VerbText sentence(std::string pattern);

// What was saved.
[[nodiscard]] std::string saved(const nlohmann::json& reply, const VerbCall& call);

// A restore's report.
[[nodiscard]] std::string report(const nlohmann::json& reply, const VerbCall& call);

// Passes the message to `format`, with as much of the drawing options and the date format as it takes. Prints
// `otherwise` if that returns nothing.
template <typename Message, typename Format>
VerbText of(Format format, std::string otherwise = {}) {
    return [format, otherwise = std::move(otherwise)](const nlohmann::json& reply, const VerbCall& call) {
        const auto message = JsonCoding::value<Message>(reply);
        std::string text;
        if constexpr (std::invocable<Format, const Message&>) {
            text = format(message);
        } else if constexpr (std::invocable<Format, const Message&, DeskDrawing::Options>) {
            text = format(message, call.environment.drawing());
        } else {
            text = format(message, call.environment.drawing(), call.environment.localDate);
        }
        return text.empty() ? otherwise : text;
    };
}

} // namespace vantrel::VerbTexts
