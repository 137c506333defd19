// Decides of which windows pictures are taken, and keeps the pictures to that.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/interface/ports/WindowPictures.h"

#include <optional>
#include <vector>

namespace vantrel {

// Lives on the main thread; controller and pictures outlive it.
class PicturedWindows {
public:
    struct Choice {
        std::vector<WindowID> windows{};
        WindowPictures::Freshness freshness = WindowPictures::Freshness::kept;

        bool operator==(const Choice&) const = default;
    };

    // None while the user does not want previews. While a surface shows the live windows: all of them but
    // those of applications that are left alone. Afterwards, of the last ones that were shown (`last`), those
    // that could not be seen, as they cannot be captured later.
    [[nodiscard]] static Choice of(const PublishedState& state, const std::vector<DeskWindow>& last);

    PicturedWindows(AppController& controller, WindowPictures& pictures);
    ~PicturedWindows();
    PicturedWindows(const PicturedWindows&) = delete;
    PicturedWindows& operator=(const PicturedWindows&) = delete;

private:
    void refresh();

    AppController& m_controller;
    WindowPictures& m_pictures;
    Publisher::ObserverID m_observer;
    std::vector<DeskWindow> m_last;
    Choice m_choice;
};

} // namespace vantrel
