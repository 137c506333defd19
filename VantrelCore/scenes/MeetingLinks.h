// Detects video calls among calendar events by their links.
#pragma once

#include <optional>
#include <string>

namespace vantrel::MeetingLinks {

// The event's fields that may contain a link.
struct EventTexts {
    std::optional<std::string> location;
    std::optional<std::string> notes;
    // Absolute.
    std::optional<std::string> url;
};

// True if a field contains a host name of Zoom, Google Meet, Microsoft Teams, Webex or FaceTime, ignoring
// case.
[[nodiscard]] bool hasVideoLink(const EventTexts& event);

} // namespace vantrel::MeetingLinks
