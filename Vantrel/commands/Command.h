// One thing that vantrel can be asked or told: a method on the session bus, verbs of vantrelctl, or both. The
// bus service, the verbs, their help, completion and the manual page all read these descriptions;
// CommandTable has them all.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/commands/shell/ValueKind.h"
#include "Vantrel/commands/verbs/VerbCall.h"

#include <concepts>
#include <filesystem>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace vantrel {

class AppController;

// A call of a method on the session bus.
struct BusCall {
    AppController& controller;
    const std::filesystem::path& supportDirectory;
    // As many as the method has.
    const std::vector<std::string>& arguments;
    ControlReply reply;

    [[nodiscard]] const std::string& operator[](std::size_t index) const { return arguments[index]; }
};

// Handles a method's calls on the main thread: replies now or later, or returns the reply.
class BusHandler {
public:
    BusHandler() = default;

    template <std::invocable<const BusCall&> Function>
    BusHandler(Function function) {
        if constexpr (std::is_void_v<std::invoke_result_t<Function, const BusCall&>>) {
            m_handle = std::move(function);
        } else {
            m_handle = [function](const BusCall& call) { call.reply(function(call)); };
        }
    }

    void operator()(const BusCall& call) const { m_handle(call); }

private:
    std::function<void(const BusCall&)> m_handle;
};

// A word after a verb.
struct Word {
    // Required if it is an argument, an option otherwise; or optional; or given any number of times; or
    // everything that follows as it was typed, even options.
    enum class Use : std::uint8_t { usual, optional, repeated, rest };

    // An argument ("name") or an option ("--desk").
    const char* name = "";
    // For help, completion and the manual page.
    const char* help = "";
    ValueKind kind = ValueKind::text;
    Use use = Use::usual;
    // The option that cannot be given with this one, if any.
    const char* excluded = nullptr;
    // The value of a number that was left out.
    unsigned fallback = 0;
};

struct Verb {
    // With the verbs above it: "layouts rename".
    const char* path = "";
    // Empty for a verb that help does not list.
    const char* help = "";
    std::vector<Word> words{};
    // The method's arguments; the words' values in their order unless stated.
    std::function<std::vector<std::string>(const Typed&)> arguments{};
    // Printed below the help. A verb with examples does nothing itself; it only groups the verbs below it.
    const char* examples = nullptr;
};

struct Command {
    // The method with its arguments and its result, all of them strings: "RenameLayout(name, newName)
    // layout". Empty for a verb that is not a method of its own.
    const char* signature = "";
    BusHandler handler{};

    std::vector<Verb> verbs{};
    // What the verbs print of the method's result.
    VerbText text{};
    // What the verbs do instead of calling the method.
    std::function<ExitCode(const VerbCall&)> run{};
    bool hasJson = true;
};

} // namespace vantrel
