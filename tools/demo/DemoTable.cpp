#include "tools/demo/DemoTable.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace vantrel::tools::DemoTable {

namespace {

constexpr const char* row = "  {:<14}  {:<14}  {:<22}  {:<20}  {:<20}  {:>5}  {:<20}  {:>6}  {}\n";

std::string place(const std::optional<Rect>& rect) {
    return rect ? fmt::format("{:>4.0f},{:<4.0f} {:>4.0f} x {:.0f}", rect->minX(), rect->minY(),
                              rect->width(), rect->height())
                : "gone";
}

std::string difference(const Rect& before, const std::optional<Rect>& now) {
    return now ? fmt::format("{:.0f}", distance(before, *now)) : "-";
}

const char* word(Verdict verdict) {
    switch (verdict) {
    case Verdict::back:
        return "back";
    case Verdict::nearest:
        return "back, nearest size";
    case Verdict::away:
        return "NOT BACK";
    case Verdict::otherState:
        return "OTHER STATE";
    case Verdict::gone:
        break;
    }
    return "GONE";
}

} // namespace

double distance(const Rect& a, const Rect& b) {
    return std::max({std::abs(a.minX() - b.minX()), std::abs(a.minY() - b.minY()),
                     std::abs(a.width() - b.width()), std::abs(a.height() - b.height())});
}

Verdict verdict(const WindowStory& story) {
    if (!story.after) {
        return Verdict::gone;
    }
    if (distance(story.before, *story.after) <= tolerance) {
        return story.stateBefore == story.stateAfter ? Verdict::back : Verdict::otherState;
    }
    const bool isInPlace = std::abs(story.before.minX() - story.after->minX()) <= tolerance &&
                           std::abs(story.before.minY() - story.after->minY()) <= tolerance;
    const bool isNearest = std::abs(story.before.width() - story.after->width()) < story.increment.width &&
                           std::abs(story.before.height() - story.after->height()) < story.increment.height;
    return isInPlace && isNearest ? Verdict::nearest : Verdict::away;
}

bool isBack(const WindowStory& story) {
    const Verdict found = verdict(story);
    return found == Verdict::back || found == Verdict::nearest;
}

std::string text(const std::vector<WindowStory>& stories) {
    std::string result = fmt::format(fmt::runtime(row), "window", "program", "state", "before",
                                     "while unplugged", "moved", "after", "off by", "verdict");
    for (const WindowStory& story : stories) {
        result +=
            fmt::format(fmt::runtime(row), story.name, story.program, story.stateBefore, place(story.before),
                        place(story.unplugged), difference(story.before, story.unplugged), place(story.after),
                        difference(story.before, story.after), word(verdict(story)));
    }
    return result;
}

} // namespace vantrel::tools::DemoTable
