// recover --list and recover N OUT: the unsaved documents that the editor
// keeps in the home folder's recovery/, for a user without a display.
#include <iostream>
#include <memory>

#include "app/cli/commands.h"
#include "core/document/recovery_copy.h"
#include "core/document/ui.h"

namespace tesselo::cli {

namespace {

struct RecoverArgs {
    bool list = false;
    int number = 0;
    std::string out;
};

int command_recover(const GlobalOptions& options, const RecoverArgs& args)
{
    const bool write = args.number != 0 || !args.out.empty();
    if (args.list == write || (write && (args.number == 0 || args.out.empty()))) {
        std::cerr << "tesselo-cli: recover needs --list, or N and OUT\n";
        return exit_usage;
    }
    auto ctx = make_context(options);
    const auto copies = all_recovery_copies(ctx->app.home());
    if (args.list) {
        int n = 0;
        for (const RecoveryListing& l : copies) {
            std::cout << ++n << '\t';
            if (l.copy) std::cout << l.copy->time << '\t' << (l.declined ? "declined" : "unsaved") << '\t'
                                  << l.copy->title << '\t' << l.copy->path << '\n';
            else std::cout << '\t' << "damaged" << '\t' << l.file.filename().string() << '\t' << '\n';
        }
        return exit_done;
    }
    if (args.number < 1 || args.number > static_cast<int>(copies.size())) {
        std::cerr << "tesselo-cli: no recovery copy " << args.number << '\n';
        return exit_usage;
    }
    const RecoveryListing& l = copies[static_cast<std::size_t>(args.number - 1)];
    if (!l.copy) {
        std::cerr << "tesselo-cli: recovery copy " << args.number << " is damaged\n";
        return exit_usage;
    }
    if (const auto why = ctx->files.replace_file(args.out, l.copy->image)) {
        ctx->ui.message(title_main, "Unable to write " + args.out + "\r" + *why, Icon::exclamation);
        return exit_refused;
    }
    return exit_done;
}

}  // namespace

void add_recover_command(CLI::App& app, const GlobalOptions& options, CommandRun& run)
{
    auto args = std::make_shared<RecoverArgs>();
    auto* cmd = app.add_subcommand("recover");
    cmd->add_flag("--list", args->list, "lists the kept documents");
    cmd->add_option("N", args->number, "the number that --list gives the document");
    cmd->add_option("OUT", args->out, "the file to write");
    cmd->callback([&options, &run, args] { run = [&options, args] { return command_recover(options, *args); }; });
}

}  // namespace tesselo::cli
