#include "app/cli/commands.h"
#include "app/cli/input_file.h"
#include "core/document/lifecycle.h"
#include "core/image/byte_reader.h"
#include "core/image/image_summary.h"

namespace tesselo::cli {

namespace {

int command_new(const GlobalOptions& options, const std::string& out)
{
    auto ctx = make_context(options);
    if (muNew(ctx->app) < 0) return exit_refused;
    ctx->ui.queue_answer_first("file:" + out);
    return muSaveas(ctx->app) ? exit_done : exit_refused;
}

int command_info(const std::string& path)
{
    std::vector<std::uint8_t> bytes;
    if (!read_input_file(path, bytes)) return exit_usage;
    ImageSummary s;
    try {
        s = summarize_image(bytes);
    } catch (const ImageBoundsError&) {
        report_corrupted(path);
        return exit_usage;
    }
    for (int e = 0; e < header_entries; ++e) std::cout << "entry_" << e << ": " << s.header[static_cast<std::size_t>(e)] << '\n';
    std::cout << "image_size: " << s.image_size << '\n'
              << "file_size: " << s.file_size << '\n'
              << "devices: " << s.devices << '\n'
              << "pages: " << s.pages << '\n'
              << "soft_keys: " << s.soft_keys << '\n'
              << "steps: " << s.steps << '\n'
              << "lists: " << s.lists << '\n'
              << "ir_formats: " << s.ir_formats << '\n'
              << "ir_records: " << s.ir_records << '\n'
              << "learned_codes: " << s.learned_codes << '\n';
    return exit_done;
}

}  // namespace

void add_document_commands(CLI::App& app, const GlobalOptions& options, CommandRun& run)
{
    auto* cmd_new = app.add_subcommand("new");
    auto out = std::make_shared<std::string>();
    cmd_new->add_option("OUT", *out, "the .kcf file to write")->required();
    cmd_new->callback([&options, &run, out] { run = [&options, out] { return command_new(options, *out); }; });

    auto* cmd_info = app.add_subcommand("info");
    auto file = std::make_shared<std::string>();
    cmd_info->add_option("FILE", *file, "a .kcf file")->required();
    cmd_info->callback([&run, file] { run = [file] { return command_info(*file); }; });
}

}  // namespace tesselo::cli
