// The user's settings, in this application's preferences.
#pragma once

#include "VantrelCore/ports/MainQueue.h"
#include "VantrelCore/ports/UserDefaults.h"

#include <atomic>
#include <memory>

namespace vantrel {

class MacUserDefaults final : public UserDefaults {
public:
    explicit MacUserDefaults(MainQueue& queue);
    ~MacUserDefaults() override;
    MacUserDefaults(const MacUserDefaults&) = delete;
    MacUserDefaults& operator=(const MacUserDefaults&) = delete;

    [[nodiscard]] std::optional<bool> boolean(std::string_view key) override;
    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) override;
    [[nodiscard]] std::optional<double> number(std::string_view key) override;
    [[nodiscard]] std::optional<std::string> text(std::string_view key) override;
    [[nodiscard]] std::optional<Date> date(std::string_view key) override;
    [[nodiscard]] std::optional<DefaultsData> data(std::string_view key) override;

    bool set(std::string_view key, const DefaultsValue& value) override;
    bool remove(std::string_view key) override;

    void setChangeHandler(std::function<void()> handler) override;

private:
    class Observer;

    // Thread-safe. Calls the handler once for all changes made before it runs.
    void notifySoon();

    MainQueue& m_queue;
    std::function<void()> m_handler;
    std::atomic<bool> m_isNotifyPosted = false;
    std::unique_ptr<Observer> m_observer;
    // Expires with this object, so that work posted before does nothing after it.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
