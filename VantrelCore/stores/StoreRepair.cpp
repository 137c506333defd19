#include "VantrelCore/stores/StoreRepair.h"

#include "VantrelCore/stores/SetAside.h"
#include "VantrelCore/stores/StoreInspection.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel::StoreRepair {

std::expected<std::filesystem::path, std::string>
putBack(FileSystem& files, const std::vector<std::filesystem::path>& directories,
        const std::string& copyName) {
    const auto name = std::filesystem::path(copyName).filename();
    const auto holder = std::ranges::find_if(
        directories, [&](const auto& directory) { return files.size(directory / name).has_value(); });
    const std::filesystem::path copy = (holder == directories.end() ? directories.front() : *holder) / name;
    auto original = SetAside::original(copy);
    if (copy.filename() != copyName || !StoreInspection::isStore(original)) {
        return std::unexpected(trf("\"{}\" is not the name of a copy. See: vantrelctl doctor", copyName));
    }
    if (const auto problem = StoreInspection::problemWith(files, copy, original); !problem.empty()) {
        return std::unexpected(trf("{} cannot be used ({}). Nothing was changed.", copyName, problem));
    }
    if (const auto error = SetAside::putBack(files, copy, original)) {
        return std::unexpected(
            trf("{} could not be put back ({}). Nothing was changed.", copyName, error.message()));
    }
    return original;
}

} // namespace vantrel::StoreRepair
