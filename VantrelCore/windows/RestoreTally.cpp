#include "VantrelCore/windows/RestoreTally.h"

#include <set>
#include <string_view>

namespace vantrel {

RestoreTally RestoreTally::of(const RestoreReport& report) {
    RestoreTally tally;
    std::set<std::string_view> open;
    std::set<std::string_view> closed;
    for (const RestoreReport::Item& item : report.items) {
        if (!item.move) {
            ++tally.closed;
            closed.insert(item.bundleID);
            continue;
        }
        open.insert(item.bundleID);
        switch (item.outcome.kind) {
        case RestoreReport::Kind::restored:
        case RestoreReport::Kind::retried:
            ++(item.move->hasMoved() ? tally.moved : tally.alreadyRight);
            break;
        case RestoreReport::Kind::failed:
            ++tally.failed;
            break;
        case RestoreReport::Kind::skipped:
            break;
        }
    }
    for (const std::string_view bundleID : closed) {
        tally.appsNotOpen += open.contains(bundleID) ? 0 : 1;
    }
    return tally;
}

} // namespace vantrel
