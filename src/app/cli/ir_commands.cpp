// ir encode, ir decode and library: the protocol dialog, the decoders and
// the IR library, headless.
#include <cstdio>
#include <optional>

#include "app/cli/commands.h"
#include "core/ir/ir_categories.h"
#include "core/ir/ir_data_dialog.h"
#include "core/ir/key_list.h"
#include "core/ir/rc56_edit.h"

namespace tesselo::cli {

namespace {

std::string hex4(std::int16_t w)
{
    char text[8];
    std::snprintf(text, sizeof text, "%04X", static_cast<unsigned>(static_cast<std::uint16_t>(w)));
    return text;
}

void print_code(const IrFormatRecord& format, const IrCodeWords& words, int count)
{
    std::cout << "count: " << count << "\nformat:";
    for (const auto w : format) std::cout << ' ' << hex4(w);
    std::cout << "\ndata:";
    for (int i = 0; i < count; ++i) std::cout << ' ' << hex4(words[static_cast<std::size_t>(i)]);
    std::cout << '\n';
}

int usage(const std::string& why)
{
    std::cerr << "tesselo-cli: " << why << '\n';
    return exit_usage;
}

int command_encode(const std::string& protocol, const std::vector<std::string>& fields)
{
    static const std::vector<std::pair<std::string, std::size_t>> forms{
        {"rc5", 2}, {"rc5x", 3}, {"rc6", 2}, {"rc6a", 3}};
    int index = -1;
    for (std::size_t i = 0; i < forms.size(); ++i)
        if (forms[i].first == protocol) index = static_cast<int>(i);
    if (index < 0) return usage("the protocol is rc5, rc5x, rc6 or rc6a");
    if (fields.size() != forms[static_cast<std::size_t>(index)].second)
        return usage("ir encode rc5 S C | rc5x S C D | rc6 S C | rc6a U S C");
    ScriptedUi ui(std::cout);
    CurrentIrCode code;
    RC56Edit dialog(ui, code);
    dialog.choose_protocol(index);
    const bool customer_first = index == rc_protocol_rc6a;
    const std::size_t first = customer_first ? 1 : 0;
    if (customer_first) dialog.Text2 = fields[0];
    dialog.Text3 = fields[first];
    dialog.Text1 = fields[first + 1];
    if (index == rc_protocol_rc5x) dialog.Text4 = fields[2];
    if (!dialog.ok()) return exit_refused;
    print_code(code.format_record(), code.ir_code_words, code.current_ir_word_count);
    return exit_done;
}

int command_decode(const std::vector<std::string>& texts)
{
    if (texts.empty() || texts.size() > static_cast<std::size_t>(ir_record_words))
        return usage("ir decode takes 1 to 33 words");
    IrCodeWords words{};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        std::string t = texts[i];
        if (t.size() > 2 && t[0] == '0' && (t[1] == 'x' || t[1] == 'X')) t = t.substr(2);
        if (t.empty() || t.size() > 4 || t.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
            return usage("not a 16-bit word in hexadecimal: " + texts[i]);
        words[i] = static_cast<std::int16_t>(hex_word(t));
    }
    const int count = static_cast<int>(texts.size());
    RcFields f;
    if (Get_RC5_Code(words, count, f)) std::cout << "rc5 " << f.system << ' ' << f.command << '\n';
    else if (Get_RC5x_Code(words, count, f))
        std::cout << "rc5x " << f.system << ' ' << f.command << ' ' << f.data << '\n';
    else if (Get_RC6_m0_Code(words, count, f)) std::cout << "rc6 " << f.system << ' ' << f.command << '\n';
    else if (Get_RC6_mA_Code(words, count, f))
        std::cout << "rc6a " << f.customer << ' ' << f.system << ' ' << f.command << '\n';
    else {
        std::cout << "unknown\n";
        return exit_refused;
    }
    return exit_done;
}

// The library's files of the home folder; nothing when the brand list or the
// library cannot be read.
std::optional<IrLibraryFiles> library_files(const GlobalOptions& options)
{
    auto ctx = make_context(options);
    auto files = load_ir_library_files(ctx->app.home());
    if (files.library.empty() || files.brandlist.empty() || files.keylist.empty()) {
        std::cerr << "tesselo-cli: no IR library in " << (ctx->app.home() / "Data base") << '\n';
        return std::nullopt;
    }
    return files;
}

std::string with_colon(std::string label)
{
    if (label.empty() || label.back() != ':') label += ':';
    return label;
}

int command_library(const GlobalOptions& options, const std::vector<std::string>& args)
{
    const std::string what = args.empty() ? "" : args[0];
    if (what == "categories" && args.size() == 1) {
        for (const auto& c : ir_categories) std::cout << c.code << '\t' << c.prefix << '\t' << c.display_name << '\n';
        return exit_done;
    }
    const bool by_category = (what == "brands" && args.size() == 2) || (what == "codesets" && args.size() == 3);
    const bool by_codeset = (what == "keys" && args.size() == 2) || (what == "code" && args.size() == 3);
    if (!by_category && !by_codeset)
        return usage("library categories | brands CATEGORY | codesets CATEGORY BRAND | keys CODESET | code CODESET KEYINDEX");
    std::optional<int> category;
    if (by_category && !(category = find_ir_category(args[1]))) return usage("no category " + args[1]);
    const auto files = library_files(options);
    if (!files) return exit_usage;
    const auto records = read_brandlist(files->brandlist);
    if (what == "brands") {
        for (const auto& b : brands_of_category(records, check_libdevice(*category))) std::cout << b << '\n';
        return exit_done;
    }
    if (what == "codesets") {
        for (const auto& label : check_device(records, check_libdevice(*category), args[2]))
            std::cout << label << '\t' << codeset_display_name(parse_codeset_label(label)->second) << '\n';
        return exit_done;
    }
    const std::string label = with_colon(args[1]);
    const std::uint32_t offset = check_deviceoffset(files->library, label);
    if (offset == 0) {
        std::cerr << "tesselo-cli: the library has no code set " << label << '\n';
        return exit_refused;
    }
    const auto names = load_keynames(files->keylist, label);
    if (what == "keys") {
        for (std::size_t i = 0; i < names.size(); ++i) std::cout << i << '\t' << names[i] << '\n';
        return exit_done;
    }
    const std::string& key = args[2];
    if (key.empty() || key.size() > 4 || key.find_first_not_of("0123456789") != std::string::npos)
        return usage("KEYINDEX is a number");
    auto handle = CreateGetIR();
    IrFormatRecord format{};
    IrCodeWords words{};
    const int count = GetIRCode(handle.get(), offset, std::stoi(key), format, words, files->library_path);
    if (count <= 0) {
        std::cerr << "tesselo-cli: the code set " << label << " has no key " << key << '\n';
        return exit_refused;
    }
    print_code(format, words, count);
    return exit_done;
}

}  // namespace

void add_ir_commands(CLI::App& app, const GlobalOptions& options, CommandRun& run)
{
    auto* ir = app.add_subcommand("ir");
    ir->require_subcommand(1);
    auto* encode = ir->add_subcommand("encode");
    auto protocol = std::make_shared<std::string>();
    auto fields = std::make_shared<std::vector<std::string>>();
    encode->add_option("PROTOCOL", *protocol, "rc5, rc5x, rc6 or rc6a")->required();
    encode->add_option("FIELDS", *fields, "the protocol's fields")->required();
    encode->callback([&run, protocol, fields] { run = [protocol, fields] { return command_encode(*protocol, *fields); }; });
    auto* decode = ir->add_subcommand("decode");
    auto words = std::make_shared<std::vector<std::string>>();
    decode->add_option("WORDS", *words, "the data words in hexadecimal")->required();
    decode->callback([&run, words] { run = [words] { return command_decode(*words); }; });

    auto* library = app.add_subcommand("library");
    auto args = std::make_shared<std::vector<std::string>>();
    library->add_option("ARGS", *args, "what to list")->required();
    library->callback([&options, &run, args] { run = [&options, args] { return command_library(options, *args); }; });
}

}  // namespace tesselo::cli
