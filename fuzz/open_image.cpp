// libFuzzer: any bytes as a file that File > Open reads: the integrity check,
// the reader into tables of their own, and, for what loads, the document
// made of it, its faults deleted as a user who goes on and answers Yes, and
// its tree. A bounds fault is an ImageBoundsError, which Open turns into
// "file is corrupted"; anything else that escapes is a finding.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/image/byte_reader.h"
#include "core/image/image_check.h"
#include "core/image/image_reader.h"
#include "core/image/open_state.h"
#include "core/model/configuration.h"
#include "fuzz_app.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tesselo;
    auto& f = fuzzing::fuzz_app();
    OpenState& state = f.app.open_state();
    std::vector<std::uint8_t> buffer(data, data + size);
    std::vector<std::string> rows;
    bool found = false;
    std::unique_ptr<Configuration> loaded;
    try {
        found = check_image(buffer, state.error_list, rows);
        loaded = load_image(buffer, 0);
    } catch (const ImageBoundsError&) {
        return 0;
    }
    state.corruption_flag = found ? corruption_go_on : corruption_none;
    f.ui.queue_answer("yes");
    const int document = create_mainform(f.app, "fuzz.kcf");
    commit_image(f.app, *loaded, f.app.documents()[static_cast<std::size_t>(document)].slot);
    f.close(document);
    return 0;
}
