#include "VantrelCore/scenes/MeetingLinks.h"

#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vantrel::MeetingLinks {

namespace {

// Parts of the host names in meeting links. Zoom and Webex are listed without a subdomain, as companies have
// their own.
constexpr std::array<std::string_view, 5> hostFragments{
    "zoom.us", "meet.google.com", "teams.microsoft.com", "webex.com", "facetime.apple.com",
};

bool namesMeetingHost(const std::optional<std::string>& text) {
    if (!text) {
        return false;
    }
    const std::string lowered = Unicode::lowercased(*text);
    return std::ranges::any_of(hostFragments, [&](std::string_view fragment) {
        return lowered.find(fragment) != std::string::npos;
    });
}

} // namespace

bool hasVideoLink(const EventTexts& event) {
    return namesMeetingHost(event.location) || namesMeetingHost(event.notes) || namesMeetingHost(event.url);
}

} // namespace vantrel::MeetingLinks
