#include "VantrelCore/licensing/LicenseProblem.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <array>

namespace vantrel::LicenseProblems {

namespace {

struct Row {
    LicenseProblem problem;
    std::string_view name;
    const char* sentence;
};

constexpr std::array rows{
    Row{LicenseProblem::damaged, "damaged", marked("The license file is damaged.")},
    Row{LicenseProblem::changed, "changed",
        marked(
            "The license file was changed by something other than Vantrel, or comes from another computer.")},
    Row{LicenseProblem::unreadable, "unreadable", marked("The license file cannot be read.")},
    Row{LicenseProblem::malformed, "malformed", marked("The license has an unknown format.")},
    Row{LicenseProblem::unknownAlgorithm, "unknownAlgorithm",
        marked("The license is not signed with Ed25519.")},
    Row{LicenseProblem::badSignature, "badSignature", marked("The license was not signed by the vendor.")},
    Row{LicenseProblem::otherProduct, "otherProduct", marked("The license is for another program.")},
    Row{LicenseProblem::otherMachine, "otherMachine", marked("The license is for another computer.")},
    Row{LicenseProblem::deactivated, "deactivated", marked("The license was deactivated on this computer.")},
    Row{LicenseProblem::expired, "expired", marked("The license has expired.")},
    Row{LicenseProblem::otherRequest, "otherRequest", marked("The license belongs to another request.")},
    Row{LicenseProblem::otherLicense, "otherLicense", marked("The license is not the one to be renewed.")},
    Row{LicenseProblem::older, "older", marked("The license is older than the stored one.")},
    Row{LicenseProblem::clockAhead, "clockAhead",
        marked("By this computer's clock the license ended long ago; if the clock is wrong, set it right.")},
};

} // namespace

std::string sentence(LicenseProblem problem) {
    return tr(std::ranges::find(rows, problem, &Row::problem)->sentence);
}

std::string_view name(LicenseProblem problem) {
    return std::ranges::find(rows, problem, &Row::problem)->name;
}

std::optional<LicenseProblem> named(std::string_view name) {
    const auto* const found = std::ranges::find(rows, name, &Row::name);
    return found == rows.end() ? std::nullopt : std::optional(found->problem);
}

} // namespace vantrel::LicenseProblems
