#include "app/cli/commands.h"
#include "app/cli/input_file.h"
#include "app/cli/link_setup.h"
#include "app/cli/script_runner.h"
#include "core/document/lifecycle.h"
#include "core/document/open_command.h"
#include "core/image/open_state.h"
#include "core/link/clock_sync.h"
#include "core/link/download.h"
#include "core/link/upload.h"

namespace tesselo::cli {

namespace {

int command_clock(const GlobalOptions& options)
{
    auto ctx = make_context(options);
    if (link_unusable(*ctx)) return exit_usage;
    return clock_sync(ctx->app) ? exit_done : exit_refused;
}

int command_download(const GlobalOptions& options, const std::string& file)
{
    auto ctx = make_context(options);
    if (link_unusable(*ctx)) return exit_usage;
    std::vector<std::uint8_t> bytes;
    if (!read_input_file(file, bytes)) return exit_usage;
    // A file that the integrity check rejects is not sent: its error window is given up.
    ctx->ui.queue_answer("giveup");
    if (open_image(ctx->app, file, std::move(bytes)) < 0)
        return ctx->app.open_state().file_corrupted ? exit_usage : exit_refused;
    ctx->ui.clear_answers();
    return muDownload_Click(ctx->app) ? exit_done : exit_refused;
}

int command_upload(const GlobalOptions& options, const std::string& out)
{
    auto ctx = make_context(options);
    if (link_unusable(*ctx)) return exit_usage;
    if (!muUpload_Click(ctx->app)) return exit_refused;
    ctx->ui.queue_answer_first("file:" + out);
    return muSaveas(ctx->app) ? exit_done : exit_refused;
}

LineResult refused_unless(bool done) { return done ? LineResult::done : LineResult::refused; }

}  // namespace

void add_link_commands(CLI::App& app, const GlobalOptions& options, CommandRun& run)
{
    auto* cmd_clock = app.add_subcommand("clock");
    cmd_clock->callback([&options, &run] { run = [&options] { return command_clock(options); }; });

    auto* cmd_download = app.add_subcommand("download");
    auto file = std::make_shared<std::string>();
    cmd_download->add_option("FILE", *file, "a .kcf file")->required();
    cmd_download->callback([&options, &run, file] { run = [&options, file] { return command_download(options, *file); }; });

    auto* cmd_upload = app.add_subcommand("upload");
    auto out = std::make_shared<std::string>();
    cmd_upload->add_option("OUT", *out, "the .kcf file to write")->required();
    cmd_upload->callback([&options, &run, out] { run = [&options, out] { return command_upload(options, *out); }; });
}

void add_link_operations(ScriptOperations& ops)
{
    ops["download"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || !ctx.app.active() || link_unusable(ctx)) return LineResult::bad_line;
        return refused_unless(muDownload_Click(ctx.app));
    };
    ops["upload"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || link_unusable(ctx)) return LineResult::bad_line;
        return refused_unless(muUpload_Click(ctx.app));
    };
    ops["clock"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || link_unusable(ctx)) return LineResult::bad_line;
        return refused_unless(clock_sync(ctx.app));
    };
}

}  // namespace tesselo::cli
