// Translations from the catalogues of GNU gettext, in the language of the session's locale or of LANGUAGE.
#pragma once

#include "VantrelCore/text/Translation.h"

#include <filesystem>
#include <memory>

namespace vantrel {

class GettextTranslation final : public Translation {
public:
    // Reads LANGUAGE/LC_MESSAGES/vantrel.mo below `folder`. The locale must have been set (setlocale). A
    // missing catalogue leaves all texts in English.
    explicit GettextTranslation(const std::filesystem::path& folder);

    // The folder with the catalogues for a program at `program`: share/locale of its installation, or, for
    // one that was not installed, locale in its build.
    [[nodiscard]] static std::filesystem::path folder(const std::filesystem::path& program);

    [[nodiscard]] const char* text(const char* english) const override;
    [[nodiscard]] const char* plural(const char* one, const char* many, std::int64_t count) const override;
};

} // namespace vantrel
