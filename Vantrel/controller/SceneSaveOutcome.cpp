#include "Vantrel/controller/SceneSaveOutcome.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel {

std::string SceneSaveOutcome::text() const {
    if (kind == Kind::refused) {
        return std::string(SceneProblems::actionText(problem));
    }
    if (kind == Kind::noDesk) {
        return hindrance == SaveOutcome::Kind::needsPermission
                   ? tr("Vantrel needs Accessibility permission to read the desk.")
                   : SaveOutcome{.kind = hindrance}.text();
    }
    const auto windows = std::ssize(scene->layout.windows);
    return kind == Kind::added ? trn("{0} window saved as the scene \"{1}\".",
                                     "{0} windows saved as the scene \"{1}\".", windows, scene->name)
                               : trn("The scene \"{1}\" was updated with {0} window.",
                                     "The scene \"{1}\" was updated with {0} windows.", windows, scene->name);
}

} // namespace vantrel
