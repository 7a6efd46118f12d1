#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/image/image_layout.h"

namespace tesselo {

struct Configuration;
class Application;

// The counts of the image that the tables of `config` make now.
// Nothing when the tables hold more than an image can carry.
std::optional<ImageCounts> count_image(const Configuration& config);

// Packs the tables into a ConfigurationImage. Recomputes the running sums
// (page_base, key_base, hardkey_index), gathers flat_softkeys, sets the fixed
// bytes of clock_block and keeps the header in section_pointers. `progress`
// is told of each stretch of work done. Empty when the tables cannot make an
// image (see count_image).
std::vector<std::uint8_t> build_image(Configuration& config, const std::function<void()>& progress = {});

// The configuration file: the image and then the 2000-byte learned-key tail.
std::vector<std::uint8_t> file_tail(const Configuration& config);

// The bytes that Save writes for `config`: the image and its tail. Empty
// when the tables cannot make an image. Recomputes the running sums as
// build_image does, so a caller that must leave a document as it is hands
// in a copy of its tables.
std::vector<std::uint8_t> configuration_file_bytes(Configuration& config);

// Builds the image of document slot `slot`; in mode 1 hands it to the
// download routine; then writes the file through the application's file
// store, whole or not at all. False when it could not be written (the user
// has been told why).
bool save_tofile(Application& app, const std::string& filename, int mode, int slot);

}  // namespace tesselo
