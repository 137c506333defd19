#include "VantrelCore/model/JsonCoding.h"

#include <cmath>

namespace vantrel::JsonCoding {

namespace {

[[noreturn]] void fail(const char* wanted, const nlohmann::json& json) {
    throw Error(std::string("expected ") + wanted + ", found " + json.type_name());
}

} // namespace

void requireObject(const nlohmann::json& json) {
    if (!json.is_object()) {
        fail("an object", json);
    }
}

void requireArray(const nlohmann::json& json) {
    if (!json.is_array()) {
        fail("an array", json);
    }
}

void requireArrayOf(const nlohmann::json& json, std::size_t count) {
    requireArray(json);
    if (json.size() != count) {
        throw Error("expected an array of " + std::to_string(count) + ", found " +
                    std::to_string(json.size()));
    }
}

bool boolean(const nlohmann::json& json) {
    if (!json.is_boolean()) {
        fail("true or false", json);
    }
    return json.get<bool>();
}

double number(const nlohmann::json& json) {
    if (!json.is_number()) {
        fail("a number", json);
    }
    return json.get<double>();
}

std::int64_t integer(const nlohmann::json& json) {
    if (json.is_number_unsigned()) {
        const auto value = json.get<std::uint64_t>();
        if (value > static_cast<std::uint64_t>(INT64_MAX)) {
            throw Error("integer out of range");
        }
        return static_cast<std::int64_t>(value);
    }
    if (json.is_number_integer()) {
        return json.get<std::int64_t>();
    }
    const double value = number(json);
    // 2^63 is the first double above the range; -2^63 is inside it.
    if (!(value >= -0x1p63 && value < 0x1p63) || std::trunc(value) != value) {
        throw Error("expected a whole number");
    }
    return static_cast<std::int64_t>(value);
}

std::string text(const nlohmann::json& json) {
    if (!json.is_string()) {
        fail("a string", json);
    }
    return json.get<std::string>();
}

Date date(const nlohmann::json& json) {
    const auto parsed = dateFromIso8601(text(json));
    if (!parsed) {
        throw Error("expected an ISO 8601 date, found \"" + json.get<std::string>() + "\"");
    }
    return *parsed;
}

std::pair<double, double> numberPair(const nlohmann::json& json) {
    requireArrayOf(json, 2);
    return {number(json[0]), number(json[1])};
}

void put(nlohmann::json& object, const char* key, Date date) {
    object[key] = iso8601Text(date);
}

void put(nlohmann::json& object, const char* key, const std::optional<Date>& date) {
    if (date) {
        put(object, key, *date);
    }
}

} // namespace vantrel::JsonCoding
