// ApplicationIcons from desktop files and the icon theme.
#pragma once

#include "Vantrel/interface/ports/ApplicationIcons.h"

#include <map>
#include <string>

namespace vantrel {

class ThemeIcons final : public ApplicationIcons {
public:
    // Identifiers are compared ignoring case, as window classes are often written differently.
    [[nodiscard]] QIcon icon(const std::string& bundleID) override;

private:
    // The identifiers of all desktop files, by their lower-case form; read when a first one is not found.
    std::map<std::string, std::string> m_identifiers;
};

} // namespace vantrel
