// A verb of vantrelctl as the user called it, and how it prints.
#pragma once

#include "Vantrel/commands/ControlClient.h"
#include "Vantrel/commands/shell/CommandShape.h"
#include "Vantrel/commands/terminal/DeskDrawing.h"
#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/ports/FileSystem.h"

#include <concepts>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {

enum class ExitCode : std::uint8_t { done = 0, failed = 1, usage = 2, notRunning = 3 };

enum class VerbOutput : std::uint8_t { text, json };

// The verbs' view of the machine they run on.
struct VerbEnvironment {
    std::string version{};
    // Called when something is about to be printed.
    std::function<DeskDrawing::Options()> drawing{};
    // Formats a date in the user's time zone.
    std::function<std::string(Date)> localDate{};
    // The running program's log.
    std::filesystem::path logFile{};
    FileSystem& files;
    // The folder of the program's stores, and its settings file.
    std::filesystem::path supportDirectory{};
    std::filesystem::path stateDirectory{};
    std::filesystem::path settingsFile{};
    // Keeps any vantrel from using the support folder while the result exists; otherwise returns who is using
    // it.
    std::function<std::expected<std::shared_ptr<void>, std::string>()> lockSupportDirectory{};
};

// What the user typed after a verb, by the words' names.
class Typed {
public:
    void add(const std::string& name, std::vector<std::string> values) { m_values[name] = std::move(values); }

    [[nodiscard]] bool has(const std::string& name) const { return m_values.contains(name); }
    // All values of a repeated word.
    [[nodiscard]] std::vector<std::string> all(const std::string& name) const {
        const auto found = m_values.find(name);
        return found == m_values.end() ? std::vector<std::string>() : found->second;
    }
    // Empty when it was not typed.
    [[nodiscard]] std::string operator[](const std::string& name) const {
        const auto values = all(name);
        return values.empty() ? "" : values.front();
    }

private:
    std::map<std::string, std::vector<std::string>> m_values;
};

struct VerbCall {
    const VerbEnvironment& environment;
    const Typed& typed;
    VerbOutput output = VerbOutput::text;
    // The whole command line, for completion and the manual page.
    std::function<CommandShape()> program{};
    // The help of the command with this path, such as {"scenes", "rename"}; if there is none, a sentence that
    // says so.
    std::function<std::expected<std::string, std::string>(const std::vector<std::string>&)> help{};
};

// Formats a reply, whose strings are safe to print.
using VerbText = std::function<std::string(const nlohmann::json& reply, const VerbCall& call)>;

} // namespace vantrel
