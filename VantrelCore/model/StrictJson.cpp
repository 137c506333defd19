#include "VantrelCore/model/StrictJson.h"

#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

namespace vantrel::StrictJson {

namespace {

// Also bounds the recursion when the document is copied.
constexpr int deepestNesting = 16;

} // namespace

std::optional<nlohmann::json> parse(std::string_view text, std::size_t largest) {
    if (text.size() > largest) {
        return std::nullopt;
    }
    bool isStrict = true;
    // The keys seen in each open object.
    std::vector<std::set<std::string>> open;
    const auto watch = [&](int depth, nlohmann::json::parse_event_t event, nlohmann::json& parsed) {
        using Event = nlohmann::json::parse_event_t;
        if (event == Event::object_start) {
            open.emplace_back();
        } else if (event == Event::object_end) {
            open.pop_back();
        } else if (event == Event::key) {
            isStrict = isStrict && open.back().insert(parsed.get<std::string>()).second;
        }
        isStrict = isStrict && depth <= deepestNesting;
        // Returning false discards the value, so rejected input is not nested further.
        return isStrict;
    };
    auto document = nlohmann::json::parse(text, watch, /*allow_exceptions=*/false);
    if (!isStrict || document.is_discarded()) {
        return std::nullopt;
    }
    return document;
}

} // namespace vantrel::StrictJson
