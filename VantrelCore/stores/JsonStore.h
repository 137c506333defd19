// The common pattern of every store: one JSON file, read when first needed and then served from a cache,
// written as a whole, atomically and durably. A file that cannot be read or decoded is moved aside to the
// same name with ".corrupt" appended and the store starts empty.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <system_error>

namespace vantrel {

// `Record` is the file's content: a struct with `std::int64_t version` first, to_json and from_json, and the
// content of an empty store as its default value. Not locked: all calls come from the main thread.
template <typename Record>
class JsonStore;

} // namespace vantrel
