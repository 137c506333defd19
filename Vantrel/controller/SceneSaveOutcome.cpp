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
    return fmt::format("{} {} as the scene \"{}\".", ControllerText::windows(scene->layout.windows.size()),
                       kind == Kind::added ? "saved" : "saved anew", scene->name);
}

} // namespace vantrel
