#include "Vantrel/controller/DefaultsWithNotes.h"

#include "Vantrel/controller/SettingKey.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vantrel {

namespace {

bool isNote(std::string_view name) {
    const SettingKey* const key = SettingKeys::named(name);
    return key != nullptr && key->purpose == SettingKey::Purpose::note;
}

struct Json {
    template <typename Plain>
    nlohmann::json operator()(const Plain& plain) const {
        return plain;
    }

    nlohmann::json operator()(Date date) const { return iso8601Text(date); }

    // Data that is not JSON is kept as a string.
    nlohmann::json operator()(const DefaultsData& data) const {
        auto json = nlohmann::json::parse(data.bytes, nullptr, false);
        return json.is_discarded() ? nlohmann::json(data.bytes) : json;
    }
};

nlohmann::json jsonOf(const DefaultsValue& value) {
    return std::visit(Json{}, value);
}

} // namespace

DefaultsWithNotes::DefaultsWithNotes(UserDefaults& settings, const std::filesystem::path& directory,
                                     const StoreFiles& files, MainQueue& queue)
    : m_settings(settings), m_queue(queue) {
    if (auto store = openProgramNotes(directory, files)) {
        m_notes = std::move(*store);
        takeOver();
    }
}

void DefaultsWithNotes::takeOver() {
    std::vector<std::string_view> found;
    auto notes = m_notes->load().notes;
    for (const SettingKey& key : SettingKeys::all()) {
        if (key.purpose == SettingKey::Purpose::note) {
            if (const auto value = key.stored(m_settings)) {
                notes.try_emplace(std::string(key.name), jsonOf(*value));
                found.push_back(key.name);
            }
        }
    }
    if (notes != m_notes->load().notes && !m_notes->write({.notes = std::move(notes)})) {
        return;
    }
    for (const std::string_view key : found) {
        m_settings.remove(key);
    }
}

const nlohmann::json* DefaultsWithNotes::note(std::string_view key) {
    if (!m_notes || !isNote(key)) {
        return nullptr;
    }
    const auto& notes = m_notes->load().notes;
    const auto found = notes.find(std::string(key));
    return found == notes.end() ? nullptr : &found->second;
}

std::optional<bool> DefaultsWithNotes::boolean(std::string_view key) {
    if (const auto* const json = note(key)) {
        return json->is_boolean() ? std::optional(json->get<bool>()) : std::nullopt;
    }
    return m_settings.boolean(key);
}

std::optional<std::int64_t> DefaultsWithNotes::integer(std::string_view key) {
    if (const auto* const json = note(key)) {
        return json->is_number_integer() ? std::optional(json->get<std::int64_t>()) : std::nullopt;
    }
    return m_settings.integer(key);
}

std::optional<double> DefaultsWithNotes::number(std::string_view key) {
    if (const auto* const json = note(key)) {
        return json->is_number() ? std::optional(json->get<double>()) : std::nullopt;
    }
    return m_settings.number(key);
}

std::optional<std::string> DefaultsWithNotes::text(std::string_view key) {
    if (const auto* const json = note(key)) {
        return json->is_string() ? std::optional(json->get<std::string>()) : std::nullopt;
    }
    return m_settings.text(key);
}

std::optional<Date> DefaultsWithNotes::date(std::string_view key) {
    if (note(key) != nullptr) {
        const auto written = text(key);
        return written ? dateFromIso8601(*written) : std::nullopt;
    }
    return m_settings.date(key);
}

std::optional<DefaultsData> DefaultsWithNotes::data(std::string_view key) {
    if (const auto* const json = note(key)) {
        return DefaultsData{json->dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)};
    }
    return m_settings.data(key);
}

bool DefaultsWithNotes::set(std::string_view key, const DefaultsValue& value) {
    if (!m_notes || !isNote(key)) {
        return m_settings.set(key, value);
    }
    const auto json = jsonOf(value);
    if (const auto* const before = note(key); before != nullptr && *before == json) {
        return true;
    }
    if (!m_notes->update([&](ProgramNotes& notes) { notes.notes[std::string(key)] = json; })) {
        return false;
    }
    notifySoon();
    return true;
}

bool DefaultsWithNotes::remove(std::string_view key) {
    if (note(key) != nullptr) {
        if (!m_notes->update([&](ProgramNotes& notes) { notes.notes.erase(std::string(key)); })) {
            return false;
        }
        notifySoon();
    }
    return m_settings.remove(key);
}

void DefaultsWithNotes::setChangeHandler(std::function<void()> handler) {
    *m_handler = handler;
    m_settings.setChangeHandler(std::move(handler));
}

void DefaultsWithNotes::notifySoon() {
    m_queue.post([handler = std::weak_ptr(m_handler)] {
        if (const auto current = handler.lock(); current && *current) {
            // A copy, as the handler may replace it.
            const auto call = *current;
            call();
        }
    });
}

} // namespace vantrel
