// ApplicationIcons from PNG data.
#pragma once

#include "Vantrel/interface/ports/ApplicationIcons.h"

#include <functional>
#include <utility>
#include <vector>

namespace vantrel {

class PictureIcons final : public ApplicationIcons {
public:
    // An application's icon in several sizes; empty without one.
    using Source = std::function<std::vector<std::string>(const std::string& bundleID)>;

    explicit PictureIcons(Source source) : m_source(std::move(source)) {}

    [[nodiscard]] QIcon icon(const std::string& bundleID) override;

private:
    Source m_source;
};

} // namespace vantrel
