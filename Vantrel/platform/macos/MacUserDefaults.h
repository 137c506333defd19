// The user's settings in the preferences of this application.
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

    // On any thread. The handler is told once, however many changes there are until it runs.
    void tellSoon();

    MainQueue& m_queue;
    std::function<void()> m_handler;
    std::atomic<bool> m_isToldSoon = false;
    std::unique_ptr<Observer> m_observer;
    // Expires with this object, so that what was posted finds nobody.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
