#include <cstdlib>
#include <filesystem>
#include <unistd.h>

#include "app/cli/commands.h"
#include "app/cli/link_setup.h"
#include "core/document/home_folder.h"
#include "platform/executable_folder.h"

namespace tesselo::cli {

std::unique_ptr<CliContext> make_context(const GlobalOptions& options) { return make_context(options, std::cout); }

std::unique_ptr<CliContext> make_context(const GlobalOptions& options, std::ostream& messages)
{
    std::optional<std::filesystem::path> option;
    if (!options.home.empty()) option = options.home;
    const auto home = resolve_home(home_sources_from_environment(executable_folder(), option));
    std::string why;
    if (!prepare_home(home, data_base_sources(), why))
        std::cerr << "tesselo-cli: cannot use the home folder " << home << ": " << why << '\n';
    auto ctx = std::make_unique<CliContext>(home, messages);
    std::string choice = options.link;
    if (choice.empty()) {
        const char* from_environment = std::getenv("TESSELO_LINK");
        choice = from_environment && *from_environment ? from_environment : "usb";
    }
    install_link(*ctx, choice);
    return ctx;
}

}  // namespace tesselo::cli
