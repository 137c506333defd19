#include "Vantrel/commands/ControlMethod.h"

#include "Vantrel/commands/ControlNames.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>
#include <memory>
#include <utility>

namespace vantrel {

namespace {

class PendingReply {
public:
    PendingReply(ControlReply reply, ErrorBoundary::Log log)
        : m_reply(std::move(reply)), m_log(std::move(log)) {}

    // Answers with an error if nothing else has answered.
    ~PendingReply() {
        answer(std::unexpected(ControlRefusal{ControlNames::failed,
                                              tr("An error stopped the command. See the log for details.")}));
    }

    PendingReply(const PendingReply&) = delete;
    PendingReply& operator=(const PendingReply&) = delete;

    void answer(const ControlAnswer& answer) {
        if (const auto reply = std::exchange(m_reply, nullptr)) {
            ErrorBoundary::run("bus", m_log, [&] { reply(answer); });
        }
    }

private:
    ControlReply m_reply;
    ErrorBoundary::Log m_log;
};

} // namespace

std::optional<std::string> refusalOf(const std::optional<std::vector<std::string>>& arguments,
                                     const ControlMethod& method) {
    if (!arguments || arguments->size() != method.arguments.size()) {
        return fmt::format("{} takes {} string argument{}.", method.name, method.arguments.size(),
                           method.arguments.size() == 1 ? "" : "s");
    }
    if (std::ranges::any_of(*arguments, [](const auto& each) { return each.size() > maxArgumentLength; })) {
        return fmt::format("{} takes strings of at most {} bytes.", method.name, maxArgumentLength);
    }
    return std::nullopt;
}

void ControlCall::run(const ControlMethod& method, const std::vector<std::string>& arguments,
                      ControlReply reply, const ErrorBoundary::Log& log) {
    const auto pending = std::make_shared<PendingReply>(std::move(reply), log);
    ErrorBoundary::run("bus: " + method.name, log, [&] {
        method.call(arguments, [pending](const ControlAnswer& answer) { pending->answer(answer); });
    });
}

} // namespace vantrel
