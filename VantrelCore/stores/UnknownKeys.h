// The keys of a document that its decoder did not know, at every level, so that they can be written back.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace vantrel {

// Records in arrays are found by their identifying keys (see the source), since they may change position.
class UnknownKeys {
public:
    UnknownKeys();
    UnknownKeys(UnknownKeys&& other) noexcept;
    UnknownKeys& operator=(UnknownKeys&& other) noexcept;
    UnknownKeys(const UnknownKeys&) = delete;
    UnknownKeys& operator=(const UnknownKeys&) = delete;
    ~UnknownKeys();

    // The keys of `document` that are missing in `known`, the same document decoded and encoded again. Keys
    // with null count as absent.
    [[nodiscard]] static UnknownKeys between(const nlohmann::json& document, const nlohmann::json& known);

    // Adds the keys to the records still in `document`. Returns the keys whose record was found.
    UnknownKeys addTo(nlohmann::json& document) const;

    [[nodiscard]] bool isEmpty() const;

private:
    struct Item;

    // Of an object.
    std::unique_ptr<nlohmann::json> m_keys;
    std::map<std::string, UnknownKeys> m_members;
    // Of an array.
    std::vector<Item> m_items;
};

} // namespace vantrel
