// The current incidents with the program's files.
#pragma once

#include "VantrelCore/stores/FileIncident.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {

// Lives on the main thread.
class FileIncidents {
public:
    // Receives a log line for every new incident.
    using Log = std::function<void(const std::string& message)>;

    explicit FileIncidents(Log log = {}) : m_log(std::move(log)) {}

    // Called after every change.
    std::function<void()> onChange;

    void report(FileIncident incident);
    // Removes the incident with this file and topic.
    void clear(const std::filesystem::path& file, FileIncident::Topic topic);

    // The user has replaced this file: whoever has read it must read it again.
    void noteReplaced(const std::filesystem::path& file);
    // How often the file was replaced.
    [[nodiscard]] std::size_t replacements(const std::filesystem::path& file) const;

    // In the order they happened.
    [[nodiscard]] const std::vector<FileIncident>& all() const { return m_incidents; }

private:
    Log m_log;
    std::vector<FileIncident> m_incidents;
    std::map<std::filesystem::path, std::size_t> m_replacements;
};

} // namespace vantrel
