// libFuzzer: any bytes as the image that Upload received from the remote:
// datatoarray into the new document, and the IR formats filled in again from
// their ids. What is no image is an ImageBoundsError, which Upload turns into
// "file is corrupted"; anything else that escapes is a finding.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/image/byte_reader.h"
#include "core/image/image_reader.h"
#include "core/ir/rebuild_ir_formats.h"
#include "fuzz_app.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tesselo;
    auto& f = fuzzing::fuzz_app();
    const int document = muNew(f.app);
    const int slot = f.app.documents()[static_cast<std::size_t>(document)].slot;
    std::vector<std::uint8_t> image(data, data + size);
    try {
        datatoarray(f.app, image, slot);
        rebuild_ir_formats(f.app, slot);
    } catch (const ImageBoundsError&) {
    }
    f.close(document);
    return 0;
}
