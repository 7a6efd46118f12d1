#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace tesselo {

// Thrown when a read would leave the buffer: whatever the bytes say, the
// reader never reads outside it. The Open command turns it into
// "file is corrupted".
class ImageBoundsError : public std::runtime_error {
public:
    ImageBoundsError() : std::runtime_error("read outside the image") {}
};

// Bounds-checked little-endian reads over an image buffer.
class ByteReader {
public:
    ByteReader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    explicit ByteReader(const std::vector<std::uint8_t>& bytes) : ByteReader(bytes.data(), bytes.size()) {}

    std::size_t size() const { return size_; }

    std::uint8_t u8(std::int64_t at) const
    {
        if (at < 0 || static_cast<std::uint64_t>(at) >= size_) throw ImageBoundsError();
        return data_[at];
    }
    std::uint16_t u16(std::int64_t at) const
    {
        return static_cast<std::uint16_t>(u8(at) | (u8(at + 1) << 8));
    }
    std::int16_t i16(std::int64_t at) const { return static_cast<std::int16_t>(u16(at)); }
    std::int32_t u24(std::int64_t at) const { return u8(at) | (u8(at + 1) << 8) | (u8(at + 2) << 16); }

private:
    const std::uint8_t* data_;
    std::size_t size_;
};

}  // namespace tesselo
