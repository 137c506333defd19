// The values that a shell offers for an argument, by its kind: names and numbers of what the running program
// knows, and words that are always the same.
#pragma once

#include "Vantrel/commands/shell/Completion.h"

#include <filesystem>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace vantrel {

class FileSystem;

namespace CompletionValues {

struct Sources {
    // Calls a method without arguments; an empty object when there is no reply.
    std::function<nlohmann::json(const char* method)> ask;
    FileSystem& files;
    std::vector<std::filesystem::path> storeFolders;
};

// `typed` are the values that Completion::Expected holds. Empty when the program does not reply. Throws if
// its reply makes no sense.
[[nodiscard]] std::vector<Completion::Candidate>
of(ValueKind kind, const std::map<std::string, std::string>& typed, const Sources& sources);

} // namespace CompletionValues

} // namespace vantrel
