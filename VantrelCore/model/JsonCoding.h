// Strict reading of JSON fields, shared by all record codecs: types are never converted silently, whole
// numbers may be written as 3 or 3.0, null reads as absent, and unknown keys are ignored. Every failure
// throws JsonCoding::Error; the store that reads the file catches it.
#pragma once

#include "VantrelCore/model/Date.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

namespace vantrel::JsonCoding {

struct Error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

void requireObject(const nlohmann::json& json);
void requireArray(const nlohmann::json& json);
void requireArrayOf(const nlohmann::json& json, std::size_t count);

[[nodiscard]] bool boolean(const nlohmann::json& json);
[[nodiscard]] double number(const nlohmann::json& json);
// Fails on a fraction or a value outside the 64-bit range.
[[nodiscard]] std::int64_t integer(const nlohmann::json& json);
[[nodiscard]] std::string text(const nlohmann::json& json);
[[nodiscard]] Date date(const nlohmann::json& json);
[[nodiscard]] std::pair<double, double> numberPair(const nlohmann::json& json);

template <typename T>
struct IsVector : std::false_type {};
template <typename T>
struct IsVector<std::vector<T>> : std::true_type {};

// Reads one value as T: strictly for basic types, otherwise with the type's from_json.
template <typename T>
[[nodiscard]] T value(const nlohmann::json& json) {
    if constexpr (std::is_same_v<T, bool>) {
        return boolean(json);
    } else if constexpr (std::is_same_v<T, double>) {
        return number(json);
    } else if constexpr (std::is_same_v<T, std::int64_t>) {
        return integer(json);
    } else if constexpr (std::is_same_v<T, std::string>) {
        return text(json);
    } else if constexpr (std::is_same_v<T, Date>) {
        return date(json);
    } else if constexpr (IsVector<T>::value) {
        requireArray(json);
        T items;
        items.reserve(json.size());
        for (const auto& item : json) {
            items.push_back(value<typename T::value_type>(item));
        }
        return items;
    } else {
        return json.get<T>();
    }
}

// The value of `key`, or none when the key is missing or null.
template <typename T>
[[nodiscard]] std::optional<T> optional(const nlohmann::json& object, const char* key) {
    requireObject(object);
    const auto found = object.find(key);
    if (found == object.end() || found->is_null()) {
        return std::nullopt;
    }
    return value<T>(*found);
}

template <typename T>
[[nodiscard]] T required(const nlohmann::json& object, const char* key) {
    auto found = optional<T>(object, key);
    if (!found) {
        throw Error(std::string("missing key ") + key);
    }
    return std::move(*found);
}

// Writes `key` only if there is a value.
template <typename T>
void put(nlohmann::json& object, const char* key, const std::optional<T>& value) {
    if (value) {
        object[key] = *value;
    }
}

void put(nlohmann::json& object, const char* key, Date date);
void put(nlohmann::json& object, const char* key, const std::optional<Date>& date);

} // namespace vantrel::JsonCoding
