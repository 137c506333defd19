#include "Vantrel/commands/verbs/VerbPrinting.h"

#include "VantrelCore/text/SafeText.h"
#include "VantrelCore/text/Translation.h"

#include <cstdio>
#include <fmt/format.h>
#include <utility>

namespace vantrel {

namespace VerbPrinting {

namespace {

void write(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
}

// Makes every string of the reply safe and keeps it on one line, so that no name can start a line or a
// column.
nlohmann::json safe(nlohmann::json answer) {
    if (answer.is_string()) {
        return SafeText::line(answer.get_ref<const std::string&>());
    }
    if (answer.is_structured()) {
        for (auto& each : answer) {
            each = safe(std::move(each));
        }
    }
    return answer;
}

} // namespace

void print(std::string_view text) {
    write(SafeText::lines(text));
}

ExitCode complain(const std::string& sentence, ExitCode code) {
    std::fflush(stdout);
    fmt::print(stderr, "vantrelctl: {}\n", SafeText::line(sentence));
    return code;
}

ExitCode complain(const ControlFailure& failure) {
    return complain(failure.message, failure.kind == ControlFailure::Kind::notRunning ? ExitCode::notRunning
                                                                                      : ExitCode::failed);
}

void printJson(const nlohmann::json& json) {
    write(SafeText::json(json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace)) + '\n');
}

ExitCode complainAboutReply(const std::exception& error) {
    return complain(trf("vantrel sent a reply that vantrelctl does not understand ({}). Do vantrel "
                        "and vantrelctl have the same version?",
                        error.what()),
                    ExitCode::failed);
}

ExitCode run(const Command& command, const Verb& verb, const VerbCall& call) {
    std::vector<std::string> arguments;
    if (verb.arguments) {
        arguments = verb.arguments(call.typed);
    } else {
        for (const Word& word : verb.words) {
            arguments.push_back(call.typed[word.name]);
        }
    }
    const std::string signature = command.signature;
    return show(ControlClient::call(signature.substr(0, signature.find('(')).c_str(), arguments),
                command.text, call);
}

ExitCode show(const ControlClient::Result<nlohmann::json>& answer, const VerbText& text,
              const VerbCall& call) {
    if (!answer) {
        return complain(answer.error());
    }
    if (call.output == VerbOutput::json) {
        printJson(*answer);
    } else {
        print(text(safe(*answer), call));
    }
    return answer->value("failed", std::size_t{0}) > 0 ? ExitCode::failed : ExitCode::done;
}

} // namespace VerbPrinting

} // namespace vantrel
