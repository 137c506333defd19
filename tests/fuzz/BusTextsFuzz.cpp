// Any argument or reply on the session bus is read or refused, reads the same once it is written again, and
// prints nothing that controls the terminal.
#include "Vantrel/commands/DesksMessage.h"
#include "Vantrel/commands/LicenseMessage.h"
#include "Vantrel/commands/ReportMessage.h"
#include "Vantrel/commands/ScenesMessage.h"
#include "Vantrel/commands/StashesMessage.h"
#include "Vantrel/commands/StatusMessage.h"
#include "Vantrel/controller/SettingKey.h"
#include "VantrelCore/commands/HotKeyText.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/model/RestoreLog.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/text/SafeText.h"
#include "tests/fuzz/Law.h"

#include <algorithm>
#include <optional>
#include <set>

namespace {

using namespace vantrel;

template <typename Message>
void tryMessage(const nlohmann::json& json) {
    std::optional<Message> message;
    try {
        message = JsonCoding::value<Message>(json);
    } catch (const std::exception&) {
        return;
    }
    const auto written =
        nlohmann::json(*message).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    nlohmann::json(JsonCoding::value<Message>(nlohmann::json::parse(written)));
}

// A desk whose displays are named by the input.
void tryDisplays(std::string_view text) {
    std::vector<DisplayInfo> displays;
    for (std::size_t start = 0; start < text.size() && displays.size() < 6;) {
        const auto end = std::min(text.find('\n', start), text.size());
        displays.push_back({.uuid = std::to_string(displays.size()),
                            .name = std::string(text.substr(start, end - start)),
                            .frame = {{static_cast<double>(end % 5), 0}, {10, 10}}});
        start = end + 1;
    }
    const auto labels = DisplayLabels::of(displays);
    std::set<std::string> distinct;
    for (const auto& [uuid, label] : labels) {
        distinct.insert(label);
    }
    fuzz::require(distinct.size() == displays.size(), "no two displays have the same label");
    static_cast<void>(DisplayLabels::resolve(text.substr(0, 8), {displays}));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    if (const auto combo = HotKeyText::parse(text)) {
        fuzz::require(HotKeyText::parse(HotKeyText::text(*combo)) == *combo,
                      "a shortcut reads as it is shown");
    }
    for (const SettingKey& key : SettingKeys::all()) {
        if (const auto value = key.read(std::string(text))) {
            fuzz::require(key.admits(*value), "a key reads only values that it admits");
        }
    }
    static_cast<void>(SceneTriggerFormatting::scheduleOf(text));
    tryDisplays(text);

    const auto line = SafeText::line(text);
    fuzz::require(SafeText::line(line) == line, "safe text does not change");
    fuzz::require(std::ranges::none_of(line, [](unsigned char c) { return c < 0x20 || c == 0x7f; }),
                  "a line has no control characters");
    for (const char* const unsafe : {"\xc2\x9b", "\xe2\x80\xae", "\xe2\x80\xa8", "\xe2\x81\xa6"}) {
        fuzz::require(line.find(unsafe) == std::string::npos, "a line does not control the terminal");
    }

    const auto json = nlohmann::json::parse(text, nullptr, false);
    if (!json.is_discarded() && size < 4096) {
        const auto dumped = json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
        const auto printed = SafeText::json(dumped);
        fuzz::require(nlohmann::json::parse(printed) == nlohmann::json::parse(dumped),
                      "a document means the same when it is escaped");
        tryMessage<StatusMessage>(json);
        tryMessage<DesksMessage>(json);
        tryMessage<ScenesMessage>(json);
        tryMessage<StashesMessage>(json);
        tryMessage<LicenseMessage>(json);
        tryMessage<RestoreReport>(json);
        tryMessage<RestoreLog>(json);
    }
    return 0;
}
