// dump, tree, check and resave: a file opened as the Open command opens it.
#include <iostream>
#include <new>

#include "app/cli/commands.h"
#include "app/cli/document_json.h"
#include "app/cli/input_file.h"
#include "core/document/lifecycle.h"
#include "core/document/open_command.h"
#include "core/image/byte_reader.h"
#include "core/image/image_check.h"
#include "core/image/image_reader.h"
#include "core/image/open_state.h"
#include "core/tree/deep_check.h"

namespace tesselo::cli {

namespace {

struct FileArgs {
    std::string file;
    std::string out;
    std::string on_fault = "cancel";
    bool deep = false;
};

int command_dump(const GlobalOptions& options, const FileArgs& args)
{
    auto ctx = make_context(options, std::cerr);
    const int document = open_input_document(*ctx, args.file, args.on_fault);
    if (document < 0) return -document;
    std::cout << document_json(ctx->app, document).dump() << '\n';
    return exit_done;
}

int command_tree(const GlobalOptions& options, const FileArgs& args)
{
    auto ctx = make_context(options, std::cerr);
    const int document = open_input_document(*ctx, args.file, args.on_fault);
    if (document < 0) return -document;
    print_tree(ctx->app, ctx->app.documents()[static_cast<std::size_t>(document)].slot, std::cout);
    return exit_done;
}

int command_resave(const GlobalOptions& options, const FileArgs& args)
{
    auto ctx = make_context(options);
    const int document = open_input_document(*ctx, args.file, args.on_fault);
    if (document < 0) return -document;
    ctx->ui.clear_answers();
    ctx->ui.queue_answer("file:" + args.out);
    return muSaveas(ctx->app, document) ? exit_done : exit_refused;
}

// Every reference of the file opened that would play wrongly, one line each
// in the tree's words; the number of lines.
int deep_lines(const GlobalOptions& options, const std::string& file)
{
    auto ctx = make_context(options, std::cerr);
    const int document = open_input_document(*ctx, file, "keep");
    if (document < 0) return 0;
    const auto lines = deep_check(ctx->app.config(ctx->app.documents()[static_cast<std::size_t>(document)].slot));
    for (const auto& line : lines) std::cout << line << '\n';
    return static_cast<int>(lines.size());
}

// The check, and then the reader's bounds as Open runs them: a file that
// Open would call "file is corrupted" is never answered "no fault". With
// --deep, the references of the opened file after it.
int command_check(const GlobalOptions& options, const FileArgs& args)
{
    std::vector<std::uint8_t> bytes;
    if (!read_input_file(args.file, bytes)) return exit_usage;
    auto errors = std::make_unique<ErrorList>();
    std::vector<std::string> rows;
    bool found = false;
    try {
        found = check_image(bytes, *errors, rows);
        load_image(bytes, 0);
    } catch (const ImageBoundsError&) {
        report_corrupted(args.file);
        return exit_usage;
    } catch (const std::bad_alloc&) {
        report_corrupted(args.file);
        return exit_usage;
    }
    for (int i = 1; i <= errors->count(); ++i) {
        const auto& r = errors->records[static_cast<std::size_t>(i)];
        std::cout << static_cast<int>(r.error_type) << '\t' << r.first_index << '\t' << r.second_index << '\t'
                  << rows[static_cast<std::size_t>(i - 1)] << '\n';
    }
    if (args.deep && deep_lines(options, args.file) > 0) found = true;
    return found ? exit_refused : exit_done;
}

}  // namespace

void on_fault_option(CLI::App* cmd, std::string& on_fault)
{
    cmd->add_option("--on-fault", on_fault, "answers the error window: cancel, keep or correct")
        ->check(CLI::IsMember({"cancel", "keep", "correct"}));
}

void add_file_commands(CLI::App& app, const GlobalOptions& options, CommandRun& run)
{
    auto args = std::make_shared<FileArgs>();

    auto* dump = app.add_subcommand("dump");
    dump->add_option("FILE", args->file, "a .kcf file")->required();
    on_fault_option(dump, args->on_fault);
    dump->callback([&options, &run, args] { run = [&options, args] { return command_dump(options, *args); }; });

    auto* tree = app.add_subcommand("tree");
    tree->add_option("FILE", args->file, "a .kcf file")->required();
    on_fault_option(tree, args->on_fault);
    tree->callback([&options, &run, args] { run = [&options, args] { return command_tree(options, *args); }; });

    auto* check = app.add_subcommand("check");
    check->add_option("FILE", args->file, "a .kcf file")->required();
    check->add_flag("--deep", args->deep, "also every reference that would play wrongly");
    check->callback([&options, &run, args] { run = [&options, args] { return command_check(options, *args); }; });

    auto* resave = app.add_subcommand("resave");
    resave->add_option("IN", args->file, "a .kcf file")->required();
    resave->add_option("OUT", args->out, "the file to write")->required();
    on_fault_option(resave, args->on_fault);
    resave->callback([&options, &run, args] { run = [&options, args] { return command_resave(options, *args); }; });
}

}  // namespace tesselo::cli
