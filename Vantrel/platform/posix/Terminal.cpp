#include "Vantrel/platform/posix/Terminal.h"

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace vantrel {

namespace {

constexpr int fewestColumns = 20;
constexpr int mostColumns = 1000;

int columnsOfOutput() {
    if (const char* value = std::getenv("COLUMNS"); value != nullptr) {
        int columns = 0;
        const std::string_view text(value);
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), columns);
        if (error == std::errc() && end == text.data() + text.size() && columns > 0) {
            return columns;
        }
    }
    winsize size{};
    if (isatty(STDOUT_FILENO) == 1 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        return size.ws_col;
    }
    return Terminal{}.columns;
}

} // namespace

Terminal standardOutputTerminal() {
    Terminal terminal;
    terminal.columns = std::clamp(columnsOfOutput(), fewestColumns, mostColumns);
    std::setlocale(LC_CTYPE, "");
    terminal.characters = std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0 ? TerminalCharacters::utf8
                                                                          : TerminalCharacters::ascii;
    return terminal;
}

} // namespace vantrel
