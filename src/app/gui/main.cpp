// tesselo: the editor. One per user: a second start hands its files to the
// running one and raises its frame.
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include "app/gui/link_choice.h"
#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/home_folder.h"
#include "core/ir/my_database_store.h"
#include "core/document/lifecycle.h"
#include "core/document/recovery_offer.h"
#include "platform/editor_presence.h"
#include "platform/executable_folder.h"
#include "platform/posix_file_store.h"
#include "platform/posix_launcher.h"
#include "views/artwork.h"
#include "views/form2.h"
#include "views/mdi_form1.h"
#include "views/program_command_line.h"
#include "views/qt_ui.h"
#include "views/recovery_timer.h"
#include "views/single_instance.h"

namespace {

namespace fs = std::filesystem;

// The user guide stands in the program's folder, where Help looks for it; a
// home folder gets it from beside the program or from the installed data, and
// again whenever that copy is newer.
void provide_user_guide(const fs::path& home)
{
    std::error_code ec;
    const fs::path target = home / tesselo::help_file_name;
    for (const fs::path& source : {tesselo::executable_folder() / tesselo::help_file_name,
                                   tesselo::installed_data_folder() / tesselo::help_file_name}) {
        if (!fs::is_regular_file(source, ec) || fs::equivalent(source, target, ec)) continue;
        if (fs::exists(target, ec) && fs::last_write_time(target, ec) >= fs::last_write_time(source, ec)) return;
        fs::copy_file(source, target, fs::copy_options::overwrite_existing, ec);
        return;
    }
}

tesselo::ProgramHelp editor_help()
{
    return {"tesselo", TESSELO_VERSION,
            "the editor of the QM4100 and QM5100 universal remote controls (Kelvaro Tesselo 3)\n\n"
            "Opens each FILE, a Configuration, in a document window. One editor runs per user: a second start\n"
            "hands its files to the running editor and brings it forward. The user guide is under Help.",
            "FILE", "a configuration file (.kcf)", "[FILE...]",
            "Environment:\n"
            "  TESSELO_HOME                the home folder: the log, temp.trl, My Database and the Data base\n"
            "                              folder (else the program's folder when it holds a Data base folder,\n"
            "                              else $XDG_DATA_HOME/tesselo, normally ~/.local/share/tesselo)\n"
            "  TESSELO_LINK                the remote: usb (the default) or tcp:HOST:PORT, where\n"
            "                              tesselo-remote-emu listens\n"
            "  TESSELO_STARTUP_LOG         when set, prints the time from the start to a usable frame\n"
            "  TESSELO_QUIT_WHEN_READY     when set, skips the splash and ends once the frame is usable\n"};
}

}  // namespace

int main(int argc, char** argv)
{
    QElapsedTimer since_start;
    since_start.start();
    const tesselo::ProgramHelp help = editor_help();
    if (tesselo::answer_without_display(argc, argv, help)) return 0;
    QApplication qt(argc, argv);
    QApplication::setDesktopFileName("tesselo");
    QApplication::setWindowIcon(tesselo::program_icon());
    const QStringList files = tesselo::program_files(qt, help);
    const QString server_name = tesselo::instance_server_name();
    if (tesselo::hand_over(server_name, files, 500)) return 0;
    tesselo::InstanceServer server;
    server.listen(server_name);

    const bool quit_when_ready = std::getenv("TESSELO_QUIT_WHEN_READY") != nullptr;
    tesselo::Form2 splash;
    if (!quit_when_ready) {
        splash.show();
        splash.change_wallpaper(900);
    }

    const auto home = tesselo::resolve_home(tesselo::home_sources_from_environment(tesselo::executable_folder(), {}));
    std::string why;
    if (!tesselo::prepare_home(home, tesselo::data_base_sources(), why))
        std::cerr << "tesselo: cannot use the home folder " << home << ": " << why << '\n';
    provide_user_guide(home);
    // Held for the whole run: the copies of recovery/ are offered only by an
    // editor that found no other on this home folder.
    const tesselo::EditorPresence presence(home);

    tesselo::QtUi ui;
    tesselo::SystemClock clock;
    tesselo::PosixLauncher launcher;
    tesselo::PosixFileStore file_store;
    tesselo::Application app(ui, clock, launcher, file_store, home);
    // The remote is reached on the USB bus, or on the link that TESSELO_LINK names.
    const char* link = std::getenv("TESSELO_LINK");
    if (!tesselo::install_gui_link(app, link ? link : "", why)) std::cerr << "tesselo: " << why << '\n';
    tesselo::MDIForm1 frame(app);
    tesselo::attach_frame(ui, frame);
    QObject::connect(&server, &tesselo::InstanceServer::raise_requested, &frame, &tesselo::MDIForm1::raise_frame);
    QObject::connect(&server, &tesselo::InstanceServer::files_received, &frame, &tesselo::MDIForm1::open_files);

    frame.show();
    // The frame's loading: My Database, its files made where they are missing.
    if (!app.my_database().error().empty())
        ui.message(tesselo::title_main, app.my_database().error(), tesselo::Icon::exclamation);
    splash.close();
    QApplication::processEvents();
    if (std::getenv("TESSELO_STARTUP_LOG") || quit_when_ready)
        std::cerr << "tesselo: frame ready after " << since_start.elapsed() << " ms\n";
    if (quit_when_ready) return 0;
    // Unsaved documents of an editor that stopped without closing them come
    // back first; the files of the command line open after them.
    tesselo::RecoveryTimer recovery_timer(app, ui);
    QTimer::singleShot(0, &frame, [&frame, &app, &presence, files] {
        if (presence.alone()) tesselo::offer_recovery(app);
        frame.update_commands();
        if (!files.isEmpty()) frame.open_files(files);
    });
    return QApplication::exec();
}
