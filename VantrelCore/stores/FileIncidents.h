// What is the matter with the program's files at present.
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
    // Takes a line for the log for every incident that is new.
    using Log = std::function<void(const std::string& message)>;

    explicit FileIncidents(Log log = {}) : m_log(std::move(log)) {}

    // Called when anything has changed.
    std::function<void()> onChange;

    void tell(FileIncident incident);
    // That is over.
    void clear(const std::filesystem::path& file, FileIncident::Topic topic);

    // The user has put another file in the place of this one: whoever has read it reads it again.
    void noteReplaced(const std::filesystem::path& file);
    // How often that has happened.
    [[nodiscard]] std::size_t replacements(const std::filesystem::path& file) const;

    // In the order in which they happened.
    [[nodiscard]] const std::vector<FileIncident>& all() const { return m_incidents; }

private:
    Log m_log;
    std::vector<FileIncident> m_incidents;
    std::map<std::filesystem::path, std::size_t> m_replacements;
};

} // namespace vantrel
