// tesselo-irlib-gen: makes the "Data base" folder's IR library, key list and
// brand list from the text of published protocol codes.
//
//   tesselo-irlib-gen CODES.txt OUTPUT-FOLDER
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "core/ir/ir_categories.h"
#include "core/ir/ir_library_layout.h"
#include "core/ir/ir_library_writer.h"
#include "core/ir/rc_formats.h"

namespace {

using namespace tesselo;

struct Command {
    int number;
    std::string name;
};

struct Wanted {
    int category;
    std::string brand, protocol, table;
    int system;
};

bool fail(const std::string& why)
{
    std::cerr << "tesselo-irlib-gen: " << why << '\n';
    return false;
}

bool read_codes(const std::string& path, std::map<std::string, std::vector<Command>>& tables, std::vector<Wanted>& sets)
{
    std::ifstream in(path);
    if (!in) return fail("cannot read " + path);
    std::string line, table;
    for (int number = 1; std::getline(in, line); ++number) {
        if (const auto hash = line.find('#'); hash == 0) continue;
        std::istringstream words(line);
        std::string first;
        if (!(words >> first)) continue;
        const std::string where = path + ":" + std::to_string(number) + ": ";
        if (!table.empty()) {
            if (first == "end") {
                table.clear();
                continue;
            }
            std::string name;
            std::getline(words >> std::ws, name);
            if (name.empty() || first.find_first_not_of("0123456789") != std::string::npos)
                return fail(where + "a command line is \"NUMBER NAME\"");
            tables[table].push_back({std::stoi(first), name});
        } else if (first == "table") {
            if (!(words >> table)) return fail(where + "a table needs a name");
        } else if (first == "codeset") {
            Wanted w;
            std::string prefix;
            if (!(words >> prefix >> w.brand >> w.protocol >> w.system >> w.table))
                return fail(where + "codeset PREFIX BRAND PROTOCOL SYSTEM TABLE");
            const auto category = find_ir_category(prefix);
            if (!category) return fail(where + "no category has the prefix " + prefix);
            if (w.protocol != "rc5" && w.protocol != "rc6") return fail(where + "the protocol is rc5 or rc6");
            w.category = *category;
            sets.push_back(w);
        } else {
            return fail(where + "unknown line");
        }
    }
    return true;
}

bool build(const std::map<std::string, std::vector<Command>>& tables, std::vector<Wanted> sets, IrLibraryContent& content)
{
    IrLibraryFormat rc5{format_id_rc5, {}}, rc6{format_id_rc6, {}};
    default_IR5Type(rc5.record);
    default_IR60Type(rc6.record);
    content.formats = {rc5, rc6};
    // Labels rise with the categories' order, so do the offsets.
    std::stable_sort(sets.begin(), sets.end(), [](const Wanted& a, const Wanted& b) { return a.category < b.category; });
    std::vector<int> next(ir_categories.size(), 0);
    for (const auto& w : sets) {
        const auto t = tables.find(w.table);
        if (t == tables.end()) return fail("no table " + w.table);
        IrLibraryCodeset set;
        set.label = codeset_label(check_libdevice(w.category), next[static_cast<std::size_t>(w.category)]++);
        set.brand = w.brand;
        set.format_id = w.protocol == "rc5" ? format_id_rc5 : format_id_rc6;
        for (const auto& c : t->second) {
            IrLibraryKey key;
            key.name = c.name;
            key.count = w.protocol == "rc5" ? encode_rc5(key.words, w.system, c.number)
                                            : encode_rc6(key.words, w.system, c.number);
            // A library code carries its format id in word 0.
            key.words[0] = set.format_id;
            set.keys.push_back(key);
        }
        content.codesets.push_back(set);
    }
    return true;
}

bool write_file(const std::filesystem::path& path, const std::string& bytes)
{
    const auto partial = path.string() + ".part";
    {
        std::ofstream out(partial, std::ios::binary);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!out) return fail("cannot write " + partial);
    }
    std::error_code ec;
    std::filesystem::rename(partial, path, ec);
    return ec ? fail("cannot write " + path.string()) : true;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: tesselo-irlib-gen CODES.txt OUTPUT-FOLDER\n";
        return 2;
    }
    std::map<std::string, std::vector<Command>> tables;
    std::vector<Wanted> sets;
    IrLibraryContent content;
    if (!read_codes(argv[1], tables, sets) || !build(tables, sets, content)) return 1;
    const std::filesystem::path folder = argv[2];
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    const auto library = write_ir_library(content);
    const bool ok = write_file(folder / ir_library_file, std::string(library.begin(), library.end())) &&
                    write_file(folder / ir_keylist_file, write_ir_keylist(content)) &&
                    write_file(folder / ir_brandlist_file, write_ir_brandlist(content));
    return ok ? 0 : 1;
}
