#pragma once

#include <memory>
#include <vector>

#include "core/image/byte_reader.h"
#include "core/image/image_layout.h"
#include "core/image/image_reader.h"
#include "core/image/image_writer.h"
#include "core/model/configuration.h"

namespace tesselo::testing {

inline std::unique_ptr<Configuration> new_configuration(int slot = 0)
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, slot);
    return c;
}

inline ImageHeader header_of(const std::vector<std::uint8_t>& image) { return read_header(ByteReader(image)); }

inline std::size_t section_at(const std::vector<std::uint8_t>& image, int section)
{
    return static_cast<std::size_t>(header_of(image)[static_cast<std::size_t>(section)] - image_link_base);
}

inline void put16(std::vector<std::uint8_t>& image, std::size_t at, unsigned value)
{
    image[at] = static_cast<std::uint8_t>(value & 0xFF);
    image[at + 1] = static_cast<std::uint8_t>(value >> 8);
}

inline void put_entry(std::vector<std::uint8_t>& image, int entry, std::int32_t value)
{
    const auto at = static_cast<std::size_t>(4 * entry);
    image[at] = static_cast<std::uint8_t>(value & 0xFF);
    image[at + 1] = static_cast<std::uint8_t>((value >> 8) & 0xFF);
    image[at + 2] = static_cast<std::uint8_t>((value >> 16) & 0xFF);
}

// The image and its tail, as the file holds them.
inline std::vector<std::uint8_t> file_of(Configuration& config)
{
    auto bytes = build_image(config);
    const auto tail = file_tail(config);
    bytes.insert(bytes.end(), tail.begin(), tail.end());
    return bytes;
}

}  // namespace tesselo::testing
