// libFuzzer: any bytes through the integrity check and the reader, as the
// Open command runs them. Never a read outside the buffer: a bounds fault is
// an ImageBoundsError, which Open turns into "file is corrupted".
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

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tesselo;
    static auto errors = std::make_unique<ErrorList>();
    std::vector<std::uint8_t> buffer(data, data + size);
    std::vector<std::string> rows;
    try {
        check_image(buffer, *errors, rows);
    } catch (const ImageBoundsError&) {
    }
    try {
        auto loaded = load_image(buffer, 0);
    } catch (const ImageBoundsError&) {
    }
    return 0;
}
