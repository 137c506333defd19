#include "VantrelCore/stores/UnknownKeys.h"

#include <array>
#include <nlohmann/json.hpp>
#include <utility>

namespace vantrel {

namespace {

using nlohmann::json;

// The keys that identify a record: a scene, stash or trigger; a layout; a display; an application or one of
// its windows; a history entry. A record is identified by those it has.
constexpr std::array identifying{"id", "configID", "layoutName", "uuid", "bundleID", "title", "date"};

// Records with equal keys are numbered.
struct Identity {
    std::string texts;
    std::size_t nth = 0;

    auto operator<=>(const Identity&) const = default;
};

// The identities of an array's items, in order.
std::vector<Identity> identities(const json& array) {
    std::vector<Identity> found;
    found.reserve(array.size());
    std::map<std::string, std::size_t> counts;
    for (const json& item : array) {
        Identity identity;
        for (const char* const key : identifying) {
            const auto text = item.is_object() ? item.find(key) : item.end();
            if (text != item.end() && text->is_string()) {
                identity.texts.append(key).append(1, '\0').append(text->get_ref<const std::string&>());
                identity.texts.append(1, '\0');
            }
        }
        identity.nth = counts[identity.texts]++;
        found.push_back(std::move(identity));
    }
    return found;
}

} // namespace

struct UnknownKeys::Item {
    Identity identity;
    UnknownKeys keys;
};

UnknownKeys::UnknownKeys() = default;
UnknownKeys::UnknownKeys(UnknownKeys&& other) noexcept = default;
UnknownKeys& UnknownKeys::operator=(UnknownKeys&& other) noexcept = default;
UnknownKeys::~UnknownKeys() = default;

bool UnknownKeys::isEmpty() const {
    return !m_keys && m_members.empty() && m_items.empty();
}

UnknownKeys UnknownKeys::between(const json& document, const json& known) {
    UnknownKeys unknown;
    if (document.is_object() && known.is_object()) {
        for (const auto& [key, value] : document.items()) {
            const auto counterpart = known.find(key);
            if (counterpart != known.end()) {
                if (auto below = between(value, *counterpart); !below.isEmpty()) {
                    unknown.m_members.emplace(key, std::move(below));
                }
            } else if (!value.is_null()) {
                if (!unknown.m_keys) {
                    unknown.m_keys = std::make_unique<json>(json::object());
                }
                (*unknown.m_keys)[key] = value;
            }
        }
    } else if (document.is_array() && known.is_array() && document.size() == known.size()) {
        std::vector<Identity> names;
        for (std::size_t i = 0; i < document.size(); ++i) {
            auto below = between(document[i], known[i]);
            if (below.isEmpty()) {
                continue;
            }
            if (names.empty()) {
                names = identities(known);
            }
            unknown.m_items.push_back({std::move(names[i]), std::move(below)});
        }
    }
    return unknown;
}

UnknownKeys UnknownKeys::addTo(json& document) const {
    UnknownKeys used;
    if (document.is_object()) {
        if (m_keys) {
            used.m_keys = std::make_unique<json>(*m_keys);
            for (const auto& [key, value] : m_keys->items()) {
                if (!document.contains(key)) {
                    document[key] = value;
                }
            }
        }
        for (const auto& [key, below] : m_members) {
            const auto member = document.find(key);
            if (member != document.end()) {
                used.m_members.emplace(key, below.addTo(*member));
            }
        }
    } else if (document.is_array() && !m_items.empty()) {
        std::map<Identity, std::size_t> places;
        for (auto& identity : identities(document)) {
            places.emplace(std::move(identity), places.size());
        }
        for (const Item& item : m_items) {
            const auto place = places.find(item.identity);
            if (place != places.end()) {
                used.m_items.push_back({item.identity, item.keys.addTo(document[place->second])});
            }
        }
    }
    return used;
}

} // namespace vantrel
