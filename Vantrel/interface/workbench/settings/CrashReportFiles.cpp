#include "Vantrel/interface/workbench/settings/CrashReportFiles.h"

#include "VantrelCore/diagnostics/CrashReportNames.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace vantrel::CrashReportFiles {

namespace {

// From the name, which begins with it in seconds; otherwise the file's.
Date dateOf(const FileEntry& entry) {
    const std::string name = entry.file.filename().string();
    std::int64_t seconds = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), seconds);
    return read.ec == std::errc() ? Date(std::chrono::seconds(seconds)) : entry.modified;
}

} // namespace

std::vector<Report> in(FileSystem& files, const std::filesystem::path& folder) {
    std::vector<Report> reports;
    for (const FileEntry& entry : files.list(folder).value_or(std::vector<FileEntry>())) {
        if (CrashReportNames::isReport(entry.file)) {
            reports.push_back({entry.file, dateOf(entry)});
        }
    }
    std::ranges::sort(reports, std::greater(), &Report::date);
    return reports;
}

std::expected<RecentDeletions::PutBack, std::string>
remove(FileSystem& files, const std::vector<std::filesystem::path>& reports) {
    std::map<std::filesystem::path, std::string> contents;
    for (const auto& report : reports) {
        auto content = files.read(report);
        if (!content) {
            return std::unexpected(trf("{} could not be read ({}). Nothing was deleted.", report.string(),
                                       content.error().message()));
        }
        contents.emplace(report, std::move(*content));
    }
    for (const auto& report : reports) {
        if (const auto error = files.remove(report)) {
            return std::unexpected(trf("{} could not be deleted ({}).", report.string(), error.message()));
        }
    }
    return [&files, contents = std::move(contents)]() -> std::expected<void, std::string> {
        for (const auto& [report, content] : contents) {
            if (const auto error = files.writeAtomically(report, content); error && !isReplaced(error)) {
                return std::unexpected(
                    trf("{} could not be written ({}).", report.string(), error.message()));
            }
        }
        return {};
    };
}

} // namespace vantrel::CrashReportFiles
