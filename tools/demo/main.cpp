// vantrel_demo: plays vantrel's main job on a private desk and shows the result for every window.
#include "tools/demo/DeskPlay.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <fmt/format.h>

int main(int argumentCount, char** arguments) {
    using namespace vantrel::tools;
    PlayOptions options;
    options.programs = {.vantrel = VANTREL_PROGRAM, .vantrelctl = VANTRELCTL_PROGRAM};
    options.pictures = std::filesystem::temp_directory_path() / "vantrel-demo";

    CLI::App app(
        "Arranges windows on a private desk with two monitors, unplugs one, plugs it back and measures "
        "where vantrel has put every window. Touches none of the user's files.",
        "vantrel_demo");
    app.footer("Exit codes: 0 every window is back, 1 some are not, 2 the demo could not be set up.");
    app.add_option("--window-manager", options.windowManager, "openbox, xfwm4, fluxbox or another")
        ->capture_default_str();
    app.add_option("--pictures", options.pictures, "Folder for the three screenshots")->capture_default_str();
    app.add_option("--vantrel", options.programs.vantrel, "The program vantrel")->capture_default_str();
    app.add_option("--vantrelctl", options.programs.vantrelctl, "The program vantrelctl")
        ->capture_default_str();
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    try {
        return playDesk(options) ? 0 : 1;
    } catch (const std::exception& error) {
        std::fflush(stdout);
        fmt::print(stderr, "vantrel_demo: {}\n", error.what());
        return 2;
    }
}
