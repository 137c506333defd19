// What the verbs print of their replies: sentences with words of the reply in them, and the texts of
// messages.
#pragma once

#include "Vantrel/commands/verbs/VerbCall.h"
#include "VantrelCore/text/Translation.h"

#include <concepts>
#include <string>
#include <utility>

namespace vantrel::VerbTexts {

// A line, translated, with the reply's strings in place of "{key}", and what the user typed for a word in
// place of "{:word}".
[[nodiscard]] VerbText sentence(const char* english);

// What was saved.
[[nodiscard]] std::string saved(const nlohmann::json& reply, const VerbCall& call);

// A restore's report.
[[nodiscard]] std::string report(const nlohmann::json& reply, const VerbCall& call);

// Passes the message to `format`, with as much of the drawing options and the date format as it takes. Prints
// `otherwise` if that returns nothing, translated.
template <typename Message, typename Format>
VerbText of(Format format, const char* otherwise = "") {
    return [format, otherwise](const nlohmann::json& reply, const VerbCall& call) {
        const auto message = JsonCoding::value<Message>(reply);
        std::string text;
        if constexpr (std::invocable<Format, const Message&>) {
            text = format(message);
        } else if constexpr (std::invocable<Format, const Message&, DeskDrawing::Options>) {
            text = format(message, call.environment.drawing());
        } else {
            text = format(message, call.environment.drawing(), call.environment.localDate);
        }
        return text.empty() ? tr(otherwise) : text;
    };
}

} // namespace vantrel::VerbTexts
