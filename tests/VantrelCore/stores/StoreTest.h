// A store on an empty folder in memory, for the tests of one store each.
#pragma once

#include "VantrelCore/model/JsonCoding.h"
#include "tests/simulated/MemoryFileSystem.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <iterator>
#include <string>
#include <vector>

namespace vantrel {

// A small record for testing what all stores have in common.
struct Notes {
    std::int64_t version = 3;
    std::vector<std::string> lines;
    double size = 0;

    bool operator==(const Notes&) const = default;
};

inline void to_json(nlohmann::json& json, const Notes& notes) {
    json = {{"version", notes.version}, {"lines", notes.lines}, {"size", notes.size}};
}

inline void from_json(const nlohmann::json& json, Notes& notes) {
    notes = {.version = JsonCoding::required<std::int64_t>(json, "version"),
             .lines = JsonCoding::required<std::vector<std::string>>(json, "lines"),
             .size = JsonCoding::optional<double>(json, "size").value_or(0)};
}

template <typename Store>
class StoreTest : public testing::Test {
protected:
    simulated::MemoryFileSystem m_files;
    Store m_store = open();

    // What the next process finds.
    Store open() { return Store::open("/v", m_files).value(); }
};

// One field of each of several records, to compare their order.
template <typename Record>
[[nodiscard]] std::vector<std::string> fieldsOf(const std::vector<Record>& records,
                                                std::string Record::* field) {
    std::vector<std::string> fields;
    std::ranges::transform(records, std::back_inserter(fields), field);
    return fields;
}

} // namespace vantrel
