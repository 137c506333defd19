// All output of the verbs, where outside text is made safe for a terminal (SafeText).
#pragma once

#include "Vantrel/commands/Command.h"
#include "VantrelCore/text/Translation.h"

#include <string>
#include <string_view>

namespace vantrel {

namespace VerbPrinting {

inline constexpr const char* exitCodes = marked(
    "Exit codes: 0 done, 1 failed (or a window could not be restored), 2 usage error, 3 vantrel is not "
    "running.");

// Prints lines for people.
void print(std::string_view text);
// Prints to standard error, prefixed with the program's name.
ExitCode complain(const std::string& sentence, ExitCode code);
ExitCode complain(const ControlFailure& failure);
void printJson(const nlohmann::json& json);
ExitCode complainAboutReply(const std::exception& error);

// Calls the command's method as the verb says and prints the reply. The exit code is `failed` if the reply
// reports windows that could not be restored.
ExitCode run(const Command& command, const Verb& verb, const VerbCall& call);

// Prints the reply as it came, or as text.
ExitCode show(const ControlClient::Result<nlohmann::json>& answer, const VerbText& text,
              const VerbCall& call);

} // namespace VerbPrinting

} // namespace vantrel
