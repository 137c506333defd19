// Changes a store's file as JSON, value by value: a file with random bytes seldom decodes far enough to use
// its values. Some changes are still of bytes.
#include <cstdint>
#include <cstring>
#include <iterator>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

using nlohmann::json;

const json interesting = json::parse(R"([
    null, true, false, 0, -1, 1.5, 2.0, -0.0, 1e308, 5e-324, 9223372036854775807, -9223372036854775808,
    18446744073709551615, "", "c", "b", "1", "\u0000", "\ud83d\ude00", [], {}, [0, 0], [[0, 0], [0, 0]],
    "2025-03-01T08:15:00Z", "0000-01-01T00:00:00+23:59", "9999-12-31T23:59:59-23:59", "1969-12-31T23:59:59.9Z"
])");

void collect(json& value, std::vector<json*>& values) {
    values.push_back(&value);
    if (value.is_structured()) {
        for (auto& item : value) {
            collect(item, values);
        }
    }
}

class Mutation {
public:
    explicit Mutation(unsigned seed) : m_random(seed) {}

    void apply(json& document) {
        std::vector<json*> values;
        collect(document, values);
        json& value = *values[below(values.size())];
        if (!value.is_structured() || value.empty() || below(4) == 0) {
            value = replacement(value);
            return;
        }
        const auto item = std::next(value.begin(), static_cast<std::ptrdiff_t>(below(value.size())));
        if (below(2) == 0) {
            value.erase(item);
        } else if (value.is_array()) {
            value.push_back(json(*item));
        } else {
            value["unknown"] = json(*item);
        }
    }

    // Mostly of the same kind, because another kind makes most files undecodable.
    json replacement(const json& value) {
        const bool anyKind = below(4) == 0;
        for (;;) {
            const json& candidate = interesting[below(interesting.size())];
            if (anyKind || candidate.type() == value.type() || (candidate.is_number() && value.is_number())) {
                return candidate;
            }
        }
    }

    std::size_t below(std::size_t end) { return m_random() % end; }

private:
    std::mt19937 m_random;
};

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    Mutation mutation(seed);
    json document = json::parse(data, data + size, nullptr, false);
    if (document.is_discarded() || mutation.below(8) == 0) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    mutation.apply(document);
    const std::string text = document.dump();
    if (text.size() > maxSize) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    std::memcpy(data, text.data(), text.size());
    return text.size();
}
