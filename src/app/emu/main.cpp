// tesselo-remote-emu: the remote's side of every exchange, over tcp, for
// trying the editor and its command line without the remote.
#include <CLI/CLI.hpp>
#include <iostream>

#include "app/emu/emu_server.h"

int main(int argc, char** argv)
{
    using namespace tesselo;
    using namespace tesselo::emulator;
    // The faults, laid out as the entries of a help section (so that the
    // manual page made from --help lists them as such).
    std::string faults = "Faults:\n";
    for (const auto& f : fault_table()) {
        std::string name = std::string("  ") + f.name;
        name += name.size() + 2 > 30 ? "\n" + std::string(30, ' ') : std::string(30 - name.size(), ' ');
        faults += name + f.what + "\n";
    }

    CLI::App app{"tesselo-remote-emu: the QM4100/QM5100 remote's side of the link, over tcp", "tesselo-remote-emu"};
    app.footer(faults);
    app.get_formatter()->column_width(30);
    app.set_version_flag("--version", "tesselo-remote-emu " TESSELO_VERSION, "prints the version and ends");
    std::string listen;
    std::string flash;
    std::vector<std::string> fault_names;
    double stop_after = 0;
    app.add_option("--listen", listen, "where to listen (port 0: any free port); prints listening on HOST:PORT")
        ->required()
        ->type_name("HOST:PORT");
    app.add_option("--flash", flash, "the file that keeps the remote's flash (else it is kept in memory)")
        ->type_name("FILE");
    app.add_option("--fault", fault_names, "makes the remote misbehave in one named way (below); repeatable")
        ->type_name("NAME");
    app.add_option("--stop-after", stop_after, "stop by itself after this many seconds (0: never)")
        ->type_name("SECONDS");
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::CallForVersion& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        app.exit(e);
        return 2;
    }

    const auto endpoint = parse_endpoint(listen);
    if (!endpoint) {
        std::cerr << "tesselo-remote-emu: --listen wants HOST:PORT, not " << listen << '\n';
        return 2;
    }
    RemoteEmulator remote(flash);
    for (const auto& name : fault_names) {
        const auto fault = fault_by_name(name);
        if (!fault) {
            std::cerr << "tesselo-remote-emu: no fault is called " << name << " (see --help)\n";
            return 2;
        }
        remote.add_fault(*fault);
    }
    std::uint16_t port = 0;
    std::string why;
    Socket listener = listen_on(*endpoint, port, why);
    if (!listener.valid()) {
        std::cerr << "tesselo-remote-emu: cannot listen on " << listen << ": " << why << '\n';
        return 1;
    }
    std::cout << "listening on " << endpoint->host << ':' << port << std::endl;
    // A remote that is not on the bus: the connection is refused, as the
    // search for the device finds nothing.
    if (!remote.present()) listener.reset();
    return serve(remote, listener, static_cast<std::uint32_t>(stop_after * 1000), std::cerr);
}
