// havuz: the desktop program. Wrong usage is status 2.
#include "app/project.h"
#include "model/platform.h"
#include "ui/qt/desktop.h"

#include <CLI/CLI.hpp>
#include <iostream>

int main(int argc, char **argv) {
    argv = havuz::platform::Arguments(argc, argv);
    havuz::DesktopOptions options;
    CLI::App parser("Pools and tanks of reinforced concrete: made, meshed, analysed.", "havuz");
    parser.allow_windows_style_options(false); // "/x" is a path everywhere
    parser.set_version_flag("--version", "havuz " HAVUZ_VERSION);
    parser.add_option("project", options.project, "project to open")->type_name("FILE.POL");
    parser.add_flag("--open", options.open, "start empty, then open the project as the open dialog does");
    parser.add_option("--record", options.record, "write what is done as a script for havuz-cli script")
        ->type_name("FILE");
    try {
        parser.parse(argc, argv);
    } catch (const CLI::Success &shown) { // --help, --version
        return parser.exit(shown);
    } catch (const CLI::ParseError &error) {
        std::cerr << "havuz: " << error.what() << "; see havuz --help\n";
        return 2;
    }
    return havuz::RunDesktop(argc, argv, havuz::OwnProgram(), options);
}
