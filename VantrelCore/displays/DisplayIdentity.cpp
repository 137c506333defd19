#include "VantrelCore/displays/DisplayIdentity.h"

#include "VantrelCore/displays/DisplayNaming.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>

namespace vantrel::DisplayIdentity {

namespace {

// "x" stands for any hexadecimal digit.
constexpr std::string_view withoutSerial = "xxxxxxxx-0000-0000-xxxx-xxxxxxxxxxxx";

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

} // namespace

bool serialFieldMissing(std::string_view uuid) {
    return std::ranges::equal(
        uuid, withoutSerial, [](char c, char wanted) { return wanted == 'x' ? isHexDigit(c) : c == wanted; });
}

std::optional<std::string> diagnosis(const DisplayInfo& display, const std::string& label) {
    if (display.isBuiltin || !display.edidUUID || !serialFieldMissing(*display.edidUUID)) {
        return std::nullopt;
    }
    return trf("{} reports no unique serial in its display identity.", label);
}

std::map<std::string, std::string> diagnoses(const std::vector<DisplayInfo>& displays) {
    const auto labels = DisplayNaming::labels(displays);
    std::map<std::string, std::string> messages;
    for (const auto& display : displays) {
        const auto label = labels.find(display.uuid);
        if (auto message = diagnosis(display, label == labels.end() ? display.name : label->second)) {
            messages[display.uuid] = std::move(*message);
        }
    }
    return messages;
}

} // namespace vantrel::DisplayIdentity
