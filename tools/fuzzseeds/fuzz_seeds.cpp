// tesselo-fuzz-seeds BASE.kcf IR.kcf FOLDER: the seeds of the fuzzers'
// corpus that the editor's commands never write: one file for each fault type
// of the check (BASE opened in the editor's tables, changed, and saved again),
// and IR.kcf with its IR data in the old layout, without closing words. Both
// files are ones that tesselo-cli built.
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/lifecycle.h"
#include "core/document/open_command.h"
#include "core/document/scripted_ui.h"
#include "core/image/image_file.h"
#include "core/image/image_layout.h"
#include "core/image/image_writer.h"
#include "platform/posix_file_store.h"
#include "platform/posix_launcher.h"

namespace {

using namespace tesselo;
namespace fs = std::filesystem;

// The first device page gets two keys beside its own: `a` and `b`.
void two_keys(Configuration& c, const SoftKey& a, const SoftKey& b)
{
    c.page_table[static_cast<std::size_t>(c.device_table[0].page_count)].key_count = 3;
    c.device_pages[0].slots[1] = a;
    c.device_pages[0].slots[2] = b;
}

void fault_shared_label(Configuration& c) { two_keys(c, {0, 1, 700, no_index, 0}, {0, 2, 700, no_index, 0}); }
void fault_shared_list(Configuration& c) { two_keys(c, {0, 1, 700, 0, 0}, {0, 2, 701, 0, 0}); }
void fault_half_key(Configuration& c) { two_keys(c, {0, 3, 700, no_index, 0}, {0, 133, 701, no_index, 0}); }

std::uint32_t u24(const std::vector<std::uint8_t>& b, std::size_t at) { return b[at] | (b[at + 1] << 8) | (b[at + 2] << 16); }
void put24(std::vector<std::uint8_t>& b, std::size_t at, std::uint32_t v)
{
    b[at] = static_cast<std::uint8_t>(v & 0xFF);
    b[at + 1] = static_cast<std::uint8_t>((v >> 8) & 0xFF);
    b[at + 2] = static_cast<std::uint8_t>(v >> 16);
}

// The same file with its IR data in the old layout: no closing words between
// the records, and offsets that follow the lengths alone.
std::vector<std::uint8_t> old_layout(const std::vector<std::uint8_t>& file)
{
    const std::size_t data = u24(file, 4 * sec_ir_data) - image_link_base;
    const std::size_t index = u24(file, 4 * sec_ir_data_index) - image_link_base;
    const std::size_t end = u24(file, 4 * sec_end_mark) - image_link_base;
    const std::size_t records = (end - index) / 4;
    std::vector<std::uint8_t> out(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(data + 2));
    std::size_t pos = data + 2;
    for (std::size_t r = 0; r < records; ++r) {
        const std::size_t length = file[index + 4 * r + 3];
        out.insert(out.end(), file.begin() + static_cast<std::ptrdiff_t>(pos), file.begin() + static_cast<std::ptrdiff_t>(pos + length));
        pos += length + 4;
    }
    std::uint32_t offset = 0;
    for (std::size_t r = 0; r < records; ++r) {
        const std::uint8_t length = file[index + 4 * r + 3];
        out.insert(out.end(), {0, 0, 0, length});
        put24(out, out.size() - 4, offset);
        offset += length;
    }
    out.insert(out.end(), file.begin() + static_cast<std::ptrdiff_t>(end), file.end());
    const std::uint32_t shorter = static_cast<std::uint32_t>(4 * records);
    put24(out, 4 * sec_ir_data_index, u24(file, 4 * sec_ir_data_index) - shorter);
    put24(out, 4 * sec_end_mark, u24(file, 4 * sec_end_mark) - shorter);
    return out;
}

struct Editor {
    std::ostringstream said;
    ScriptedUi ui{said};
    VirtualClock clock;
    PosixLauncher launcher;
    PosixFileStore files;
    Application app;
    explicit Editor(const fs::path& home) : app(ui, clock, launcher, files, home) {}

    // BASE opened, changed by `change`, saved as `out`; false with the editor's words on failure.
    bool derive(const std::string& base, const fs::path& out, const std::function<void(Configuration&)>& change)
    {
        const int document = open_configuration(app, base);
        if (document < 0) return false;
        const int slot = app.documents()[static_cast<std::size_t>(document)].slot;
        change(app.config(slot));
        const bool saved = save_tofile(app, out.string(), 0, slot);
        ui.queue_answer("no");
        close_document(app, document);
        return saved;
    }
};

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::cerr << "usage: tesselo-fuzz-seeds BASE.kcf IR.kcf FOLDER\n";
        return 2;
    }
    const std::string base = argv[1];
    const std::string ir_codes = argv[2];
    const fs::path folder = argv[3];
    const fs::path home = fs::temp_directory_path() / ("tesselo-fuzz-seeds-" + std::to_string(::getpid()));
    fs::create_directories(home);
    fs::create_directories(folder);
    Editor editor(home);
    bool ok = true;
    try {
        ok = ok && editor.derive(base, folder / "fault-1-shared-label.kcf", fault_shared_label);
        ok = ok && editor.derive(base, folder / "fault-2-shared-list.kcf", fault_shared_list);
        ok = ok && editor.derive(base, folder / "fault-3-half-key.kcf", fault_half_key);
        if (ok) {
            std::vector<std::uint8_t> current;
            ok = !read_image_file(ir_codes, current);
            const auto old = old_layout(current);
            std::ofstream(folder / "ir-old-layout.kcf", std::ios::binary)
                .write(reinterpret_cast<const char*>(old.data()), static_cast<std::streamsize>(old.size()));
        }
    } catch (const std::exception& e) {
        std::cerr << "tesselo-fuzz-seeds: " << e.what() << '\n';
        ok = false;
    }
    std::error_code ignore;
    fs::remove_all(home, ignore);
    if (!ok) std::cerr << "tesselo-fuzz-seeds: " << editor.said.str();
    return ok ? 0 : 1;
}
