// tesselo-cli: what the editor does with windows, headless, through the same
// core operations.
#include <CLI/CLI.hpp>

#include "app/cli/commands.h"

int main(int argc, char** argv)
{
    using namespace tesselo::cli;
    CLI::App app{"tesselo-cli: programs the QM4100 and QM5100 remote controls without windows"};
    app.require_subcommand(1);
    app.fallthrough();
    GlobalOptions options;
    app.add_option("--home", options.home, "the program's folder (else TESSELO_HOME, else the usual place)");
    app.add_option("--link", options.link, "the remote: usb, tcp:HOST:PORT or emulator (else TESSELO_LINK, else usb)");
    CommandRun run;
    add_document_commands(app, options, run);
    add_file_commands(app, options, run);
    add_script_command(app, options, run);
    add_link_commands(app, options, run);
    add_ir_commands(app, options, run);
    add_simulate_command(app, options, run);
    add_overview_command(app, options, run);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        app.exit(e);
        return exit_usage;
    }
    return run ? run() : exit_usage;
}
