// Icons of invented applications, so that pictures look the same on every machine.
#pragma once

#include "Vantrel/interface/ports/ApplicationIcons.h"

namespace vantrel::pictures {

// By the last part of the identifier: "org.example.Mail". Others have none.
class StandInIcons final : public ApplicationIcons {
public:
    [[nodiscard]] QIcon icon(const std::string& bundleID) override;
};

} // namespace vantrel::pictures
