// A surface in one of its states, to be painted.
#pragma once

#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantrel::pictures {

struct Surface {
    std::string name;
    // Of its own size; made anew for every picture.
    std::function<std::unique_ptr<QWidget>()> make;
};

[[nodiscard]] std::vector<Surface> deskSurfaces();
[[nodiscard]] std::vector<Surface> panelSurfaces();
[[nodiscard]] std::vector<Surface> onboardingSurfaces();
[[nodiscard]] std::vector<Surface> switcherSurfaces();
[[nodiscard]] std::vector<Surface> workbenchSurfaces();
[[nodiscard]] std::vector<Surface> rulesAndSettingsSurfaces();
[[nodiscard]] std::vector<Surface> editorSurfaces();
[[nodiscard]] std::vector<Surface> everySurface();

} // namespace vantrel::pictures
