#include "Vantrel/interface/desk/PicturedWindows.h"

#include <algorithm>
#include <variant>

namespace vantrel {

namespace {

bool isWanted(const PublishedState& state) {
    const auto found = state.preferences.find("showWindowPreviews");
    const bool* const isOn = found == state.preferences.end() ? nullptr : std::get_if<bool>(&found->second);
    return isOn != nullptr && *isOn;
}

bool isLeftAlone(const DeskWindow& window, const std::vector<AppRule>& rules) {
    return std::ranges::any_of(rules, [&](const AppRule& rule) {
        return rule.bundleID == window.bundleID && std::holds_alternative<AppRule::Ignore>(rule.action);
    });
}

} // namespace

PicturedWindows::Choice PicturedWindows::of(const PublishedState& state,
                                            const std::vector<DeskWindow>& last) {
    const bool isLive = state.liveWindows.has_value();
    Choice choice{.freshness = isLive && isWanted(state) ? WindowPictures::Freshness::live
                                                         : WindowPictures::Freshness::kept};
    if (!isWanted(state)) {
        return choice;
    }
    for (const DeskWindow& window : isLive ? *state.liveWindows : last) {
        if (!isLeftAlone(window, state.rules) && (isLive || !window.isOnScreen)) {
            choice.windows.push_back(window.id);
        }
    }
    // The stacking order does not matter.
    std::ranges::sort(choice.windows);
    return choice;
}

PicturedWindows::PicturedWindows(AppController& controller, WindowPictures& pictures)
    : m_controller(controller), m_pictures(pictures),
      m_observer(controller.addObserver([this](Topics changed) {
          if (changed.containsAnyOf({Topic::live, Topic::rules, Topic::settings})) {
              refresh();
          }
      })) {}

PicturedWindows::~PicturedWindows() {
    m_controller.removeObserver(m_observer);
    m_pictures.follow({}, WindowPictures::Freshness::kept);
}

void PicturedWindows::refresh() {
    const PublishedState& state = m_controller.published();
    const Choice choice = of(state, m_last);
    if (state.liveWindows) {
        m_last = *state.liveWindows;
    }
    if (choice != m_choice) {
        m_choice = choice;
        m_pictures.follow(choice.windows, choice.freshness);
    }
}

} // namespace vantrel
