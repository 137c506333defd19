#include "VantrelCore/displays/DisplayLabels.h"

#include "VantrelCore/displays/DisplayNaming.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <functional>
#include <set>
#include <utility>

namespace vantrel::DisplayLabels {

namespace {

std::vector<std::string> inOrder(const std::vector<DisplayInfo>& displays) {
    const auto shared = DisplayNaming::labels(displays);
    std::vector<std::string> result;
    std::set<std::string> taken;
    for (const DisplayInfo& display : displays) {
        const auto placed = shared.find(display.uuid);
        const std::string wanted = placed == shared.end() ? display.name : placed->second;
        std::string label = wanted;
        for (int number = 2; !taken.insert(Unicode::lowercased(label)).second; ++number) {
            label = fmt::format("{} {}", wanted, number);
        }
        result.push_back(label);
    }
    return result;
}

struct Candidate {
    DisplayInfo display;
    std::string label;
};

using Candidates = std::vector<Candidate>;
using Fits = std::function<bool(const Candidate&)>;

// A display on several desks keeps its label from the first one.
Candidates candidates(const std::vector<std::vector<DisplayInfo>>& desks) {
    Candidates all;
    for (const auto& displays : desks) {
        const auto labels = of(displays);
        for (const DisplayInfo& display : displays) {
            all.push_back({display, labels.at(display.uuid)});
        }
    }
    return all;
}

// The first fitting candidate of each display.
Candidates fitting(const Candidates& all, const Fits& fits) {
    Candidates found;
    for (const Candidate& each : all) {
        const bool isKnown = std::ranges::any_of(
            found, [&](const Candidate& other) { return other.display.uuid == each.display.uuid; });
        if (!isKnown && fits(each)) {
            found.push_back(each);
        }
    }
    return found;
}

// Displays of different desks may have the same label; their identities tell them apart.
std::vector<std::string> texts(const Candidates& shown) {
    std::vector<std::string> result;
    for (const Candidate& each : shown) {
        const auto same = std::ranges::count(shown, each.label, &Candidate::label);
        result.push_back(same > 1 ? fmt::format("{} ({})", each.label, each.display.uuid) : each.label);
    }
    return result;
}

std::expected<DisplayInfo, std::string> only(std::string_view called, const Candidates& found,
                                             const Candidates& all) {
    if (found.size() > 1) {
        return std::unexpected(trf("\"{}\" matches more than one display: {}. Name one of them.", called,
                                   fmt::format("{}", fmt::join(texts(found), ", "))));
    }
    // Prefer its label on the current desk.
    const auto first = std::ranges::find_if(
        all, [&](const Candidate& each) { return each.display.uuid == found.front().display.uuid; });
    DisplayInfo display = first->display;
    display.name = first->label;
    return display;
}

} // namespace

std::map<std::string, std::string> of(const std::vector<DisplayInfo>& displays) {
    const auto labels = inOrder(displays);
    std::map<std::string, std::string> result;
    for (std::size_t i = 0; i < displays.size(); ++i) {
        result.try_emplace(displays[i].uuid, labels[i]);
    }
    return result;
}

std::vector<DisplayInfo> labelled(std::vector<DisplayInfo> displays) {
    const auto labels = inOrder(displays);
    for (std::size_t i = 0; i < displays.size(); ++i) {
        displays[i].name = labels[i];
    }
    return displays;
}

std::expected<DisplayInfo, std::string> resolve(std::string_view called,
                                                const std::vector<std::vector<DisplayInfo>>& desks) {
    const std::string wanted = Unicode::lowercased(Unicode::trimmed(called));
    const auto isWanted = [&](const std::string& text) { return Unicode::lowercased(text) == wanted; };
    const Fits hasIdentity = [&](const Candidate& each) { return isWanted(each.display.uuid); };
    const Fits hasLabel = [&](const Candidate& each) { return isWanted(each.label); };
    const Fits hasName = [&](const Candidate& each) { return isWanted(each.display.name); };
    const Fits begins = [&](const Candidate& each) {
        return !wanted.empty() && Unicode::lowercased(each.label).starts_with(wanted);
    };
    const Candidates all = candidates(desks);
    const Candidates here = desks.empty() ? Candidates{} : candidates({desks.front()});
    const std::pair<const Candidates&, const Fits&> steps[] = {
        {here, hasIdentity}, {here, hasLabel}, {here, hasName}, {all, hasIdentity},
        {all, hasLabel},     {all, hasName},   {here, begins},  {all, begins}};
    for (const auto& [where, fits] : steps) {
        if (const Candidates found = fitting(where, fits); !found.empty()) {
            return only(called, found, all);
        }
    }
    const auto known = texts(fitting(all, [](const Candidate&) { return true; }));
    return std::unexpected(known.empty() ? trf("No display \"{}\" is known.", called)
                                         : trf("No display \"{}\" is known. Known displays: {}.", called,
                                               fmt::format("{}", fmt::join(known, ", "))));
}

} // namespace vantrel::DisplayLabels
