#include "Vantrel/controller/SceneSaveOutcome.h"

#include "Vantrel/controller/ControllerText.h"

#include <fmt/format.h>

namespace vantrel {

std::string SceneSaveOutcome::text() const {
    if (kind == Kind::refused) {
        return std::string(SceneProblems::actionText(problem));
    }
    if (kind == Kind::noDesk) {
        return hindrance == SaveOutcome::Kind::needsPermission
                   ? "Vantrel needs Accessibility permission to read the desk."
                   : SaveOutcome{.kind = hindrance}.text();
    }
    const std::string windows = ControllerText::windows(scene->layout.windows.size());
    return kind == Kind::added ? fmt::format("{} saved as the scene \"{}\".", windows, scene->name)
                               : fmt::format("The scene \"{}\" was updated with {}.", scene->name, windows);
}

} // namespace vantrel
