#include "VantrelCore/ports/SessionLanguage.h"

#include "Vantrel/platform/linux/GettextTranslation.h"

#include <clocale>
#include <langinfo.h>
#include <string_view>

namespace vantrel {

void useSessionLanguage() {
    std::setlocale(LC_CTYPE, "");
    std::setlocale(LC_MESSAGES, "");
    // Texts are UTF-8, which a terminal with another character set would garble.
    if (nl_langinfo(CODESET) != std::string_view("UTF-8")) {
        return;
    }
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    // Until the process ends: texts are kept by address.
    static const GettextTranslation translation(GettextTranslation::folder(program));
    setTranslation(&translation);
}

} // namespace vantrel
