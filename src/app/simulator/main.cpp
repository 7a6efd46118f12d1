// tesselo-simulator [FILE]: a configuration run as the remote runs it, in a
// window. One per user: a second start hands its file to the running one and
// brings it forward. Without FILE it runs the home folder's temp.trl, which
// the editor's Simulator command writes.
#include <filesystem>

#include <QApplication>
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

int main(int argc, char** argv)
{
    QApplication qt(argc, argv);
    QApplication::setApplicationName("tesselo-simulator");
    QApplication::setApplicationVersion(TESSELO_VERSION);
    QApplication::setDesktopFileName("tesselo-simulator");
    QApplication::setWindowIcon(tesselo::program_icon());

    QCommandLineParser options;
    options.setApplicationDescription(
        "Runs a configuration as the remote runs it: press its keys on the remote's picture and watch what it does.\n"
        "Without FILE it runs temp.trl of the home folder, which the editor's Simulator command writes.");
    options.addHelpOption();
    options.addVersionOption();
    options.addPositionalArgument("FILE", "a configuration file (.kcf) or temp.trl", "[FILE]");
    options.process(qt);
    const QStringList files = options.positionalArguments();

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
