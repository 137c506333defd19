#include "VantrelCore/text/SimilarName.h"

#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <utility>

namespace vantrel::SimilarName {

namespace {

// No known name is as long; a longer one would only cost time.
constexpr std::size_t longest = 64;

// Optimal string alignment distance, in bytes.
std::size_t distance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> beforeLast;
    std::vector<std::size_t> last(to.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::vector<std::size_t> row(to.size() + 1, i);
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1]) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
        beforeLast = std::exchange(last, std::move(row));
    }
    return last.back();
}

} // namespace

std::optional<std::string_view> of(std::string_view typed, const std::vector<std::string_view>& known) {
    if (typed.size() > longest) {
        return std::nullopt;
    }
    const std::string wanted = Unicode::lowercased(typed);
    std::optional<std::string_view> best;
    std::size_t least = typed.size() / 3 + 1;
    for (const std::string_view name : known) {
        if (const auto found = distance(wanted, Unicode::lowercased(name)); found < least) {
            best = name;
            least = found;
        }
    }
    return best;
}

} // namespace vantrel::SimilarName
