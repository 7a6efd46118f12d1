// overview FILE OUT: the printable overview of FILE, written to OUT as a PDF
// file. It is drawn with the editor's drawing of the display, so it needs
// Qt; without a screen it draws offscreen.
#include <iostream>
#include <memory>

#include "app/cli/commands.h"
#include "app/cli/input_file.h"

#ifdef TESSELO_WITH_QT
#include <QByteArray>
#include <QGuiApplication>

#include "core/document/lifecycle.h"
#include "core/document/ui.h"
#include "core/keys/ir_step_names.h"
#include "core/keys/overview_content.h"
#include "views/overview_printer.h"
#endif

namespace tesselo::cli {

namespace {

struct OverviewArgs {
    std::string file;
    std::string out;
    std::string on_fault = "cancel";
};

#ifdef TESSELO_WITH_QT
int command_overview(const GlobalOptions& options, const OverviewArgs& args)
{
    auto ctx = make_context(options, std::cerr);
    const int document = open_input_document(*ctx, args.file, args.on_fault);
    if (document < 0) return -document;
    const Document& doc = ctx->app.documents()[static_cast<std::size_t>(document)];

    // The command line shows no window: the drawing needs no screen. Qt's
    // own notes about the desktop it runs without are not the command's words.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg) std::cerr << "tesselo-cli: " << text.toStdString() << '\n';
    });
    int argc = 1;
    char name[] = "tesselo-cli";
    char* argv[] = {name, nullptr};
    QGuiApplication gui(argc, argv);

    const LibraryStepNames names(ctx->app.home(), &ctx->app.my_database());
    const QByteArray pdf =
        overview_pdf(overview_sections(ctx->app.config(doc.slot), names, &ctx->app.tree(doc.slot)),
                     QString::fromStdString(document_display_name(doc.title)));
    if (pdf.isEmpty()) {
        ctx->ui.message(title_main, "Unable to write " + args.out, Icon::exclamation);
        return exit_refused;
    }
    if (const auto why = ctx->files.replace_file(args.out, std::vector<std::uint8_t>(pdf.begin(), pdf.end()))) {
        ctx->ui.message(title_main, "Unable to write " + args.out + "\r" + *why, Icon::exclamation);
        return exit_refused;
    }
    return exit_done;
}
#else
int command_overview(const GlobalOptions&, const OverviewArgs&)
{
    std::cerr << "tesselo-cli: overview needs Qt 6, and this build of tesselo-cli is without it\n";
    return exit_usage;
}
#endif

}  // namespace

void add_overview_command(CLI::App& app, const GlobalOptions& options, CommandRun& run)
{
    auto args = std::make_shared<OverviewArgs>();
    auto* cmd = app.add_subcommand("overview");
    cmd->add_option("FILE", args->file, "a .kcf file")->required();
    cmd->add_option("OUT", args->out, "the PDF file to write")->required();
    on_fault_option(cmd, args->on_fault);
    cmd->callback([&options, &run, args] { run = [&options, args] { return command_overview(options, *args); }; });
}

}  // namespace tesselo::cli
