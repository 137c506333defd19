#include "VantrelCore/text/SemVer.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace vantrel::SemVer {

namespace {

std::optional<std::int64_t> component(std::string_view part) {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), value);
    // from_chars accepts a minus sign.
    if (error != std::errc{} || end != part.data() + part.size() || part.front() == '-') {
        return std::nullopt;
    }
    return value;
}

} // namespace

std::optional<std::vector<std::int64_t>> components(std::string_view version) {
    std::vector<std::int64_t> numbers;
    for (std::size_t start = 0; start <= version.size();) {
        const std::size_t end = std::min(version.find('.', start), version.size());
        const auto number = component(version.substr(start, end - start));
        if (!number) {
            return std::nullopt;
        }
        numbers.push_back(*number);
        start = end + 1;
    }
    return numbers;
}

bool isNewer(std::string_view a, std::string_view b) {
    auto left = components(a);
    auto right = components(b);
    if (!left || !right) {
        return false;
    }
    const std::size_t length = std::max(left->size(), right->size());
    left->resize(length, 0);
    right->resize(length, 0);
    return *left > *right;
}

} // namespace vantrel::SemVer
