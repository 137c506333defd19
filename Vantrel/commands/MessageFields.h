// Writes and reads messages as JSON objects. A message lists its keys once, in a static member function
// `fields(self, field)` that calls `field(key, self.member)` for each. Optional members without a value are
// not written; reading throws JsonCoding::Error when any other member is missing.
#pragma once

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

struct FieldWriter {
    nlohmann::json& json;

    template <typename T>
    void operator()(const char* key, const T& value) const {
        json[key] = value;
    }

    template <typename T>
    void operator()(const char* key, const std::optional<T>& value) const {
        JsonCoding::put(json, key, value);
    }
};

struct FieldReader {
    const nlohmann::json& json;

    template <typename T>
    void operator()(const char* key, T& value) const {
        value = JsonCoding::required<T>(json, key);
    }

    template <typename T>
    void operator()(const char* key, std::optional<T>& value) const {
        value = JsonCoding::optional<T>(json, key);
    }
};

template <typename Message>
concept HasFields =
    requires(Message& message, const FieldReader& reader) { Message::fields(message, reader); };

template <HasFields Message>
void to_json(nlohmann::json& json, const Message& message) {
    json = nlohmann::json::object();
    Message::fields(message, FieldWriter{json});
}

template <HasFields Message>
void from_json(const nlohmann::json& json, Message& message) {
    JsonCoding::requireObject(json);
    Message::fields(message, FieldReader{json});
}

} // namespace vantrel
