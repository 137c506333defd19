// What "vantrelctl doctor" finds: one line for everything it looked at.
#pragma once

#include "Vantrel/commands/StatusMessage.h"
#include "VantrelCore/ports/FileSystem.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct Diagnosis {
    struct Line {
        // "files", "folders", "bus" or "window manager".
        std::string area;
        bool isSound = true;
        // For people.
        std::string text;
        // What to type; absent where nothing needs to be done or no command helps.
        std::optional<std::string> command{};

        bool operator==(const Line&) const = default;
    };

    std::vector<Line> lines;

    bool operator==(const Diagnosis&) const = default;

    [[nodiscard]] bool isSound() const;
};

namespace Doctor {

struct Patient {
    FileSystem& files;
    std::filesystem::path supportDirectory;
    std::filesystem::path settingsFile;
    // The running program's status, or why there is none.
    std::expected<StatusMessage, std::string> status;
    // A date as the user writes it.
    std::function<std::string(Date)> localDate;
};

// Writes and removes a small file in each folder, and changes nothing else.
[[nodiscard]] Diagnosis examine(const Patient& patient);

// As it is printed.
[[nodiscard]] std::string text(const Diagnosis& diagnosis);

} // namespace Doctor

void to_json(nlohmann::json& json, const Diagnosis& diagnosis);

} // namespace vantrel
