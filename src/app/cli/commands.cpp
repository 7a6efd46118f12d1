#include "app/cli/commands.h"

namespace tesselo::cli {

void add_all_commands(CLI::App& app, const GlobalOptions& options, CommandRun& run)
{
    add_document_commands(app, options, run);
    add_file_commands(app, options, run);
    add_script_command(app, options, run);
    add_link_commands(app, options, run);
    add_ir_commands(app, options, run);
    add_simulate_command(app, options, run);
    add_overview_command(app, options, run);
    add_recover_command(app, options, run);
}

}  // namespace tesselo::cli
