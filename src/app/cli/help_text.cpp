// The help of tesselo-cli, laid out so that help2man makes the manual page
// of it: a section title ends with a colon, each entry is indented two
// blanks, and its description starts at column 30 or on the next line.
#include "app/cli/help_text.h"

#include <sstream>

namespace tesselo::cli {

namespace {

constexpr std::size_t description_column = 30;
constexpr std::size_t line_width = 79;

void write_wrapped(std::ostream& out, const std::string& text, std::size_t column)
{
    std::istringstream words(text);
    std::string word;
    std::size_t at = column;
    bool first = true;
    while (words >> word) {
        if (!first && at + 1 + word.size() > line_width) {
            out << '\n' << std::string(column, ' ');
            at = column;
            first = true;
        }
        if (!first) {
            out << ' ';
            ++at;
        }
        out << word;
        at += word.size();
        first = false;
    }
    out << '\n';
}

void write_entry(std::ostream& out, const std::string& usage, const std::string& description)
{
    const std::string head = "  " + usage;
    out << head;
    if (head.size() + 2 > description_column) out << '\n' << std::string(description_column, ' ');
    else out << std::string(description_column - head.size(), ' ');
    write_wrapped(out, description, description_column);
}

void write_section(std::ostream& out, const std::string& title, const std::vector<HelpEntry>& entries)
{
    out << '\n' << title << ":\n";
    for (const auto& e : entries) write_entry(out, e.usage, e.description);
}

// The usage of an option as the user writes it: "--home DIR".
std::string option_usage(const CLI::Option& option)
{
    std::string usage = option.get_name(false, true);
    const std::string type = option.get_type_name();
    if (option.get_type_size() != 0 && !type.empty()) usage += " " + type;
    return usage;
}

}  // namespace

const std::vector<HelpEntry>& command_help()
{
    static const std::vector<HelpEntry> entries = {
        {"new OUT", "a new Configuration (HOME and its PAGE1), saved to OUT"},
        {"info FILE",
         "the 25 header entries (entry_0 to entry_24), image_size, file_size and the counts devices, pages, "
         "soft_keys, steps, lists, ir_formats, ir_records and learned_codes, as name: value lines"},
        {"check [--deep] FILE",
         "the integrity check that Open runs: one line per fault, TYPE<TAB>FIRST<TAB>SECOND<TAB>DEVICE/PAGEn/KEYn; "
         "with --deep, then every reference of the opened file that would play wrongly (a jump or link naming "
         "nothing or the wrong key, two HOME keys on one row, a list, label or learned code shared by two owners, "
         "counts that differ from the rows in use, a left button without its right one, a punched key without its "
         "owner), one line each in the tree's words, WHERE: WHAT; exit 0 with no fault, 1 with faults, 2 when the "
         "file cannot be read"},
        {"dump FILE [--on-fault cancel|keep|correct]",
         "opens FILE as Open does and prints every table as one JSON object; --on-fault answers the error window: "
         "give up (cancel, the default), go on and keep the faults (keep), or go on and delete them (correct)"},
        {"tree FILE [--on-fault cancel|keep|correct]",
         "opens FILE and prints its tree in the order it shows the nodes, one node a line: "
         "INDEX<TAB>PARENT-INDEX<TAB>KEY<TAB>TEXT<TAB>IMAGE"},
        {"resave IN OUT [--on-fault cancel|keep|correct]", "opens IN as Open does and saves it as OUT"},
        {"script FILE",
         "replays the operations in FILE, one a line, as the editor's gestures ('-' reads standard input); "
         "see Script operations"},
        {"download FILE",
         "opens FILE as Open does (a file that the check rejects is not sent) and runs Download on it; exit 0 on "
         "\"Send Complete!\", 1 otherwise"},
        {"upload OUT", "runs Upload and saves the new document as OUT; exit 1 when the upload failed"},
        {"clock", "runs Clock Sync: the remote's clock is set to the computer's time of day"},
        {"ir encode rc5 S C | rc5x S C D | rc6 S C | rc6a U S C",
         "prints count: N, format: and the 32 words of the protocol's format record, data: and the N code words, "
         "each word as 4 hex digits; a field out of range prints the dialog's message and exits 1"},
        {"ir decode WORDS...",
         "reads data words (hex, 0x optional) back into rc5 S C, rc5x S C D, rc6 S C or rc6a U S C; unknown and "
         "exit 1 when they are of no protocol"},
        {"library categories", "the IR library's categories, CODE<TAB>PREFIX<TAB>NAME, one a line"},
        {"library brands CATEGORY", "the brands of a category (by its code 01, prefix tv or name), one a line"},
        {"library codesets CATEGORY BRAND", "the code sets of a brand, LABEL<TAB>Code Set-NNN, one a line"},
        {"library keys CODESET", "the keys of a code set (tv000 or tv000:), INDEX<TAB>NAME, one a line"},
        {"library code CODESET KEYINDEX",
         "the key's count, format and data lines, as ir encode prints them; exit 1 for a code set or key that the "
         "library does not have, 2 when the home folder holds no library"},
        {"overview FILE OUT [--on-fault cancel|keep|correct]",
         "opens FILE as Open does and writes its overview to OUT as a PDF file on A4 sheets, drawn offscreen (no "
         "display needed); OUT is written whole or not at all (\"Unable to write OUT\" and why, exit 1)"},
        {"simulate FILE [SCRIPT]",
         "runs FILE (a .kcf file or temp.trl) as the remote runs it, without a remote and without a window, with "
         "the gestures of SCRIPT ('-' or none: standard input); see Simulator gestures"},
        {"recover --list / recover N OUT",
         "the unsaved documents that the editor keeps in the home folder's recovery/, one a line: "
         "N<TAB>TIME<TAB>STATE<TAB>TITLE<TAB>PATH, STATE unsaved (offered at the editor's next start), declined "
         "(kept a week) or damaged (a copy that cannot be read, named by its file), PATH empty for a document never "
         "saved; with N and OUT, the document's image, the bytes Save would write, is written to OUT whole or not at "
         "all (\"Unable to write OUT\" and why, exit 1); exit 2 for a number that --list does not give"},
    };
    return entries;
}

std::vector<std::string> usage_names(const std::string& usage)
{
    std::vector<std::string> names;
    std::size_t start = 0;
    while (start <= usage.size()) {
        const std::size_t end = usage.find(" / ", start);
        const std::string form = usage.substr(start, end == std::string::npos ? std::string::npos : end - start);
        const std::string name = form.substr(0, form.find(' '));
        if (!name.empty()) names.push_back(name);
        if (end == std::string::npos) break;
        start = end + 3;
    }
    return names;
}

std::string command_description(const std::string& path)
{
    std::string description;
    for (const auto& e : command_help())
        if (e.usage.rfind(path, 0) == 0 && (e.usage.size() == path.size() || e.usage[path.size()] == ' ')) {
            if (!description.empty()) description += "; ";
            description += e.description;
        }
    return description;
}

std::string help_text(const CLI::App& app, bool all)
{
    std::ostringstream out;
    out << app.get_description() << '\n';
    out << "Usage: " << app.get_name() << " [OPTIONS] COMMAND [ARGS...]\n";
    out << "\nOptions:\n";
    for (const CLI::Option* option : app.get_options())
        write_entry(out, option_usage(*option), option->get_description());
    write_section(out, "Commands", command_help());
    if (!all) {
        out << '\n';
        write_wrapped(out,
                      "Run '" + app.get_name() + " COMMAND --help' for the arguments of a command, and '" +
                          app.get_name() + " --help-all' for the script operations and the simulator's gestures.",
                      0);
        return out.str();
    }
    write_section(out, "Script operations", script_operation_help());
    out << '\n';
    write_wrapped(out,
                  "A script has one operation a line; '#' starts a comment; an argument in double quotes may hold "
                  "blanks. Messages print as message \"TITLE\" \"TEXT\", questions as ask \"TITLE\" \"TEXT\" -> ANSWER, "
                  "status texts as status \"TEXT\"; a refusal prints its message and the script goes on.",
                  0);
    write_section(out, "Simulator gestures", simulator_gesture_help());
    write_section(out, "Simulator actions", simulator_action_help());
    write_section(out, "Exit status",
                  {{"0", "done"},
                   {"1", "the operation was refused or failed (its message was printed)"},
                   {"2", "bad usage, an unreadable input, or a script line that cannot be parsed, names something "
                         "that does not exist or asks for what the editor greys"},
                   {"3", "a script needed an answer that was not queued"}});
    write_section(out, "Environment",
                  {{"TESSELO_HOME", "the home folder, when --home is not given"},
                   {"TESSELO_LINK", "the remote, when --link is not given: usb, tcp:HOST:PORT or emulator"},
                   {"XDG_DATA_HOME",
                    "the home folder is $XDG_DATA_HOME/tesselo (normally ~/.local/share/tesselo) unless the "
                    "option, TESSELO_HOME or a Data base folder beside the program names another"}});
    return out.str();
}

}  // namespace tesselo::cli
