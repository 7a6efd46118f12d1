#include "app/cli/commands.h"
#include "app/cli/link_setup.h"
#include "app/cli/script_runner.h"
#include "core/link/clock_sync.h"
#include "core/link/download.h"

namespace tesselo::cli {

namespace {

int command_clock(const GlobalOptions& options)
{
    auto ctx = make_context(options);
    if (link_unusable(*ctx)) return exit_usage;
    return clock_sync(ctx->app) ? exit_done : exit_refused;
}

LineResult refused_unless(bool done) { return done ? LineResult::done : LineResult::refused; }

}  // namespace

void add_link_commands(CLI::App& app, const GlobalOptions& options, CommandRun& run)
{
    auto* cmd_clock = app.add_subcommand("clock", "runs Clock Sync: the remote's clock is set to the local time");
    cmd_clock->callback([&options, &run] { run = [&options] { return command_clock(options); }; });
}

void add_link_operations(ScriptOperations& ops)
{
    ops["download"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || !ctx.app.active() || link_unusable(ctx)) return LineResult::bad_line;
        return refused_unless(muDownload_Click(ctx.app));
    };
    ops["clock"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || link_unusable(ctx)) return LineResult::bad_line;
        return refused_unless(clock_sync(ctx.app));
    };
}

}  // namespace tesselo::cli
