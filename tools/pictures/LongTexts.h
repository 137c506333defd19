// A translation that makes every text 40 % longer, as other languages do.
#pragma once

#include "VantrelCore/text/Translation.h"

#include <map>
#include <string>

namespace vantrel::pictures {

// For one thread.
class LongTexts final : public Translation {
public:
    [[nodiscard]] const char* text(const char* english) const override;
    [[nodiscard]] const char* plural(const char* one, const char* many, std::int64_t count) const override;

private:
    // By the English text; nodes keep their addresses.
    mutable std::map<std::string, std::string> m_longer;
};

} // namespace vantrel::pictures
