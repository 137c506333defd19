#include "Vantrel/platform/linux/GettextTranslation.h"

#include <libintl.h>

namespace vantrel {

namespace {

constexpr const char* domain = "vantrel";

} // namespace

GettextTranslation::GettextTranslation(const std::filesystem::path& folder) {
    bindtextdomain(domain, folder.c_str());
    bind_textdomain_codeset(domain, "UTF-8");
}

std::filesystem::path GettextTranslation::folder(const std::filesystem::path& program) {
    const auto programs = program.parent_path();
    // PROJECT/build/PRESET/Vantrel/vantrel, with the catalogues in PROJECT/build/PRESET/locale.
    const auto built = programs.parent_path() / "locale";
    std::error_code error;
    return std::filesystem::is_directory(built, error) ? built : programs.parent_path() / "share" / "locale";
}

const char* GettextTranslation::text(const char* english) const {
    return dgettext(domain, english);
}

const char* GettextTranslation::plural(const char* one, const char* many, std::int64_t count) const {
    const auto magnitude = static_cast<unsigned long>(count < 0 ? -count : count);
    return dngettext(domain, one, many, magnitude);
}

} // namespace vantrel
