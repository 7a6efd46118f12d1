// tesselo-simulator [FILE]: a configuration run as the remote runs it, in a
// window. One per user: a second start hands its file to the running one and
// brings it forward. Without FILE it runs the home folder's temp.trl, which
// the editor's Simulator command writes.
#include <filesystem>
#include <string>

#include <QApplication>
#include <QFileInfo>

#include "core/document/home_folder.h"
#include "core/document/lifecycle.h"
#include "core/ir/my_database_store.h"
#include "core/keys/ir_step_names.h"
#include "platform/executable_folder.h"
#include "views/artwork.h"
#include "views/program_command_line.h"
#include "views/simulator_window.h"
#include "views/single_instance.h"

namespace {

tesselo::ProgramHelp simulator_help()
{
    return {"tesselo-simulator", TESSELO_VERSION,
            "runs a configuration of the QM4100 and QM5100 remotes as the remote runs it, in a window\n\n"
            "Press its keys on the remote's picture and watch what it does. Without FILE it runs temp.trl of the\n"
            "home folder, which the editor's Simulator command writes. One simulator runs per user: a second\n"
            "start hands its file to the running one and brings it forward.",
            "FILE", "a configuration file (.kcf) or temp.trl", "[FILE]",
            "Environment:\n"
            "  TESSELO_HOME                the home folder, whose temp.trl, IR library and My Database it reads\n"};
}

}  // namespace

int main(int argc, char** argv)
{
    const tesselo::ProgramHelp help = simulator_help();
    if (tesselo::answer_without_display(argc, argv, help)) return 0;
    QApplication qt(argc, argv);
    QApplication::setDesktopFileName("tesselo-simulator");
    QApplication::setWindowIcon(tesselo::program_icon());
    const QStringList files = tesselo::program_files(qt, help);

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
