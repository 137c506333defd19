// Reads the user's calendars from the system's event store.
#pragma once

#include "VantrelCore/ports/CalendarReader.h"

#include <memory>

namespace vantrel {

class MacCalendarReader final : public CalendarReader {
public:
    MacCalendarReader();
    ~MacCalendarReader() override;

    void requestAccessIfNeeded(std::function<void()> done) override;
    // Returns events of all calendars. Ignores the query's folders, which are for other systems.
    [[nodiscard]] CalendarReading read(const CalendarQuery& query) override;

private:
    struct State;
    // Shared with pending permission requests.
    std::shared_ptr<State> m_state;
};

} // namespace vantrel
