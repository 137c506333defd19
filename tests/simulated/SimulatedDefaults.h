// The user's settings in memory.
#pragma once

#include "VantrelCore/ports/MainQueue.h"
#include "VantrelCore/ports/UserDefaults.h"

#include <map>
#include <string>

namespace vantrel::simulated {

class SimulatedDefaults final : public UserDefaults {
public:
    // Posts change notifications to `queue`.
    explicit SimulatedDefaults(MainQueue& queue) : m_queue(queue) {}

    [[nodiscard]] std::optional<bool> boolean(std::string_view key) override { return find<bool>(key); }
    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) override {
        return find<std::int64_t>(key);
    }
    [[nodiscard]] std::optional<double> number(std::string_view key) override;
    [[nodiscard]] std::optional<std::string> text(std::string_view key) override {
        return find<std::string>(key);
    }
    [[nodiscard]] std::optional<Date> date(std::string_view key) override { return find<Date>(key); }
    [[nodiscard]] std::optional<DefaultsData> data(std::string_view key) override {
        return find<DefaultsData>(key);
    }
    bool set(std::string_view key, const DefaultsValue& value) override;
    bool remove(std::string_view key) override;
    void setChangeHandler(std::function<void()> handler) override { m_handler = std::move(handler); }

    [[nodiscard]] std::optional<SettingsFile> file() override { return m_file; }

    // As if a person had edited a file with these lines.
    void edit(const SettingsFile& file);

    // From now on, keys whose name contains `part` cannot be written.
    void failWrites(const std::string& part = "") { m_unwritable = part; }

private:
    template <typename T>
    [[nodiscard]] std::optional<T> find(std::string_view key) const {
        const auto found = m_values.find(key);
        const T* const value = found == m_values.end() ? nullptr : std::get_if<T>(&found->second);
        return value != nullptr ? std::optional(*value) : std::nullopt;
    }
    void notify();

    MainQueue& m_queue;
    std::map<std::string, DefaultsValue, std::less<>> m_values;
    std::optional<SettingsFile> m_file;
    std::function<void()> m_handler;
    std::optional<std::string> m_unwritable;
};

} // namespace vantrel::simulated
