// The findings of "vantrelctl doctor": one line for each check.
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
        // The command to run; absent when nothing needs to be done or no command helps.
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
    std::filesystem::path stateDirectory;
    std::filesystem::path settingsFile;
    // The running program's status, or the reason why it is unavailable.
    std::expected<StatusMessage, std::string> status;
    // Formats a date for the user.
    std::function<std::string(Date)> localDate;
};

// Writes and removes a small file in each folder; changes nothing else.
[[nodiscard]] Diagnosis examine(const Patient& patient);

// The printed text.
[[nodiscard]] std::string text(const Diagnosis& diagnosis);

} // namespace Doctor

void to_json(nlohmann::json& json, const Diagnosis& diagnosis);

} // namespace vantrel
