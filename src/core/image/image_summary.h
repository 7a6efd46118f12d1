#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "core/model/limits.h"

namespace tesselo {

// What a ConfigurationImage holds, read from its header and its counted
// sections without loading it.
struct ImageSummary {
    std::array<std::int32_t, header_entries> header{};
    std::int64_t image_size = 0;  // the end mark's position plus 6
    std::int64_t file_size = 0;   // the buffer's length
    int devices = 0;              // HOME not counted
    int pages = 0;
    int soft_keys = 0;
    int steps = 0;
    int lists = 0;
    int ir_formats = 0;
    int ir_records = 0;
    int learned_codes = 0;
};

// Throws ImageBoundsError when the buffer is no image.
ImageSummary summarize_image(const std::vector<std::uint8_t>& buffer);

}  // namespace tesselo
