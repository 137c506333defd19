// A store on an empty folder in memory, for the tests of one store each.
#pragma once

#include "tests/simulated/MemoryFileSystem.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <iterator>
#include <string>
#include <vector>

namespace vantrel {

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
