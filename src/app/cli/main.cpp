// tesselo-cli: what the editor does with windows, headless, through the same
// core operations.
#include <CLI/CLI.hpp>
#include <iostream>

#include "app/cli/commands.h"
#include "app/cli/help_text.h"

namespace {

// Each command's own --help tells what the program's help tells of it.
void describe_commands(CLI::App& app, const std::string& path)
{
    for (CLI::App* sub : app.get_subcommands([](CLI::App*) { return true; })) {
        const std::string sub_path = path.empty() ? sub->get_name() : path + " " + sub->get_name();
        sub->description(tesselo::cli::command_description(sub_path));
        describe_commands(*sub, sub_path);
    }
}

}  // namespace

int main(int argc, char** argv)
{
    using namespace tesselo::cli;
    CLI::App app{"tesselo-cli: programs the QM4100 and QM5100 remote controls without windows", "tesselo-cli"};
    app.require_subcommand(1);
    app.fallthrough();
    GlobalOptions options;
    CommandRun run;
    add_all_commands(app, options, run);
    describe_commands(app, "");
    // The commands keep the standard -h,--help; the program's own help is the
    // manual's text, and --help-all the whole of it.
    app.set_help_flag();
    app.add_flag_callback("-h,--help", [&app] {
        std::cout << help_text(app, false);
        throw CLI::Success();
    }, "prints this help and ends");
    app.add_flag_callback("--help-all", [&app] {
        std::cout << help_text(app, true);
        throw CLI::Success();
    }, "prints this help with the script operations, the simulator's gestures, the exit status and the environment");
    app.set_version_flag("--version", "tesselo-cli " TESSELO_VERSION, "prints the version and ends");
    app.add_option("--home", options.home, "the program's folder (else TESSELO_HOME, else the usual place)")
        ->type_name("DIR");
    app.add_option("--link", options.link, "the remote: usb, tcp:HOST:PORT or emulator (else TESSELO_LINK, else usb)")
        ->type_name("LINK");
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::CallForVersion& e) {
        return app.exit(e);
    } catch (const CLI::Success&) {
        // Our own help was printed.
        return exit_done;
    } catch (const CLI::ParseError& e) {
        app.exit(e);
        return exit_usage;
    }
    return run ? run() : exit_usage;
}
