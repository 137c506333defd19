// Whether a calendar event is a video call, by the links in its texts.
#pragma once

#include <optional>
#include <string>

namespace vantrel::MeetingLinks {

// The texts of an event that may hold a link; absent when the event has none.
struct EventTexts {
    std::optional<std::string> location;
    std::optional<std::string> notes;
    // Absolute.
    std::optional<std::string> url;
};

// True when one of the texts names the host of a meeting on Zoom, Google Meet, Microsoft Teams, Webex or
// FaceTime, in whatever case.
[[nodiscard]] bool hasVideoLink(const EventTexts& event);

} // namespace vantrel::MeetingLinks
