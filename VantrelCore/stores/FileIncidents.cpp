#include "VantrelCore/stores/FileIncidents.h"

#include "VantrelCore/text/Translation.h"
#include <algorithm>

namespace vantrel {

void FileIncidents::report(FileIncident incident) {
    if (std::ranges::find(m_incidents, incident) != m_incidents.end()) {
        return;
    }
    std::erase_if(m_incidents, [&](const FileIncident& known) {
        return known.file == incident.file && known.topic() == incident.topic();
    });
    if (m_log) {
        m_log("files: " + inEnglish([&] { return FileIncidentText::sentence(incident); }));
    }
    m_incidents.push_back(std::move(incident));
    if (onChange) {
        onChange();
    }
}

void FileIncidents::noteReplaced(const std::filesystem::path& file) {
    ++m_replacements[file];
    clear(file, FileIncident::Topic::content);
}

std::size_t FileIncidents::replacements(const std::filesystem::path& file) const {
    const auto found = m_replacements.find(file);
    return found == m_replacements.end() ? 0 : found->second;
}

void FileIncidents::clear(const std::filesystem::path& file, FileIncident::Topic topic) {
    const auto isOver = [&](const FileIncident& known) {
        return known.file == file && known.topic() == topic;
    };
    if (std::erase_if(m_incidents, isOver) > 0 && onChange) {
        onChange();
    }
}

} // namespace vantrel
