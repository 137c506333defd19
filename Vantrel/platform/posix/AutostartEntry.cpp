#include "Vantrel/platform/posix/AutostartEntry.h"

#include <fmt/format.h>

namespace vantrel::AutostartEntry {

namespace {

// Escapes for a quoted argument, then escapes every backslash for the key's value. A percent sign would begin
// a field code, so it is doubled.
std::string quoted(std::string_view program) {
    std::string result;
    for (const char each : program) {
        switch (each) {
        case '"':
        case '`':
        case '$':
            result += std::string(R"(\\)") + each;
            break;
        case '\\':
            result += R"(\\\\)";
            break;
        case '%':
            result += "%%";
            break;
        default:
            result += each;
        }
    }
    return '"' + result + '"';
}

std::string withCommand(std::string_view command) {
    return fmt::format(
        "# Written because the setting launchAtLogin is on, and removed when it is off. Once you "
        "change\n# this file it is yours, and vantrel leaves it alone.\n"
        "[Desktop Entry]\n"
        "Type=Application\n"
        "Name=Vantrel\n"
        "Comment=Puts every window back where you left it\n"
        "Exec={}\n"
        "Icon=org.vantrel.Vantrel\n"
        "Terminal=false\n"
        "StartupNotify=false\n",
        command);
}

// True if we wrote it, perhaps with another program path.
bool isOurs(std::string_view content) {
    constexpr std::string_view mark = "\nExec=";
    const auto at = content.find(mark);
    if (at == std::string_view::npos) {
        return false;
    }
    const auto begin = at + mark.size();
    return content == withCommand(content.substr(begin, content.find('\n', begin) - begin));
}

} // namespace

std::string text(std::string_view program) {
    return withCommand(quoted(program));
}

Change change(bool isWanted, const std::optional<std::string>& existing, std::string_view program) {
    if (!existing) {
        return isWanted ? Change::write : Change::nothing;
    }
    if (!isOurs(*existing)) {
        return Change::leaveAlone;
    }
    if (!isWanted) {
        return Change::remove;
    }
    return *existing == text(program) ? Change::nothing : Change::write;
}

} // namespace vantrel::AutostartEntry
