// tesselo-simulator [FILE]: a configuration run as the remote runs it, in a
// window. One per user: a second start hands its file to the running one and
// brings it forward. Without FILE it runs the home folder's temp.trl, which
// the editor's Simulator command writes.
#include <filesystem>
#include <string>

#include <QApplication>
#include <QCoreApplication>
#include <QCommandLineParser>
#include <QFileInfo>

#include "core/document/home_folder.h"
#include "core/document/lifecycle.h"
#include "core/ir/my_database_store.h"
#include "core/keys/ir_step_names.h"
#include "platform/executable_folder.h"
#include "views/artwork.h"
#include "views/simulator_window.h"
#include "views/single_instance.h"

namespace {

// The command line; --help and --version print and end here.
QStringList files_of(const QCoreApplication& app)
{
    QCommandLineParser options;
    options.setApplicationDescription(
        "Runs a configuration as the remote runs it: press its keys on the remote's picture and watch what it does.\n"
        "Without FILE it runs temp.trl of the home folder, which the editor's Simulator command writes.");
    options.addHelpOption();
    options.addVersionOption();
    options.addPositionalArgument("FILE", "a configuration file (.kcf) or temp.trl", "[FILE]");
    options.process(app);
    return options.positionalArguments();
}

void name_program()
{
    QCoreApplication::setApplicationName("tesselo-simulator");
    QCoreApplication::setApplicationVersion(TESSELO_VERSION);
}

}  // namespace

int main(int argc, char** argv)
{
    // --help and --version answer without a display.
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--help" || word == "-h" || word == "--help-all" || word == "--version" || word == "-v") {
            QCoreApplication core(argc, argv);
            name_program();
            files_of(core);
            return 0;
        }
    }
    QApplication qt(argc, argv);
    name_program();
    QApplication::setDesktopFileName("tesselo-simulator");
    QApplication::setWindowIcon(tesselo::program_icon());
    const QStringList files = files_of(qt);

    const QString server_name = tesselo::instance_server_name("simulator");
    if (tesselo::hand_over(server_name, files, 500)) return 0;
    tesselo::InstanceServer server;
    server.listen(server_name);

    // The steps' rows are named from the home folder's library and My Database.
    const auto home = tesselo::resolve_home(tesselo::home_sources_from_environment(tesselo::executable_folder(), {}));
    tesselo::MyDatabaseStore my_database(home);
    my_database.load();
    const tesselo::LibraryStepNames names(home, &my_database);

    tesselo::SimulatorWindow window(names);
    QObject::connect(&server, &tesselo::InstanceServer::raise_requested, &window, [&window] {
        if (window.isMinimized()) window.showNormal();
        window.raise();
        window.activateWindow();
    });
    QObject::connect(&server, &tesselo::InstanceServer::files_received, &window,
                     [&window](const QStringList& paths) { window.open_file(paths.back()); });
    window.place_on_screen();
    window.show();

    const QString scratch = QString::fromStdString((home / tesselo::scratch_image_name).string());
    if (!files.isEmpty()) window.open_file(files.back());
    else if (QFileInfo::exists(scratch)) window.open_file(scratch);
    return QApplication::exec();
}
