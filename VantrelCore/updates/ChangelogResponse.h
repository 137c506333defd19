// The vendor's changelog: its releases, newest first.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

struct ChangelogResponse {
    struct Release {
        std::string version;

        bool operator==(const Release&) const = default;
    };

    std::vector<Release> releases;

    bool operator==(const ChangelogResponse&) const = default;

    // None if the text is not a changelog. Other keys are ignored.
    [[nodiscard]] static std::optional<ChangelogResponse> decode(std::string_view text);
};

} // namespace vantrel
