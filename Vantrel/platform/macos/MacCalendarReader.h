// The user's calendars, from the system's event store.
#pragma once

#include "VantrelCore/ports/CalendarReader.h"

#include <memory>

namespace vantrel {

class MacCalendarReader final : public CalendarReader {
public:
    MacCalendarReader();
    ~MacCalendarReader() override;

    void requestAccessIfNeeded(std::function<void()> done) override;
    // Events of all calendars; the folders of a query are for other systems.
    [[nodiscard]] CalendarReading read(const CalendarQuery& query) override;

private:
    struct State;
    // Shared with questions to the user that are still open.
    std::shared_ptr<State> m_state;
};

} // namespace vantrel
