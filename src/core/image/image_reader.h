#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "core/model/limits.h"

namespace tesselo {

class Application;
class ByteReader;
struct Configuration;

using ImageHeader = std::array<std::int32_t, header_entries>;

// The 25 header entries: byte 0 plus 256 times byte 1 plus 65536 times
// byte 2 of each; byte 3 is ignored.
ImageHeader read_header(const ByteReader& in);

// The sections that the integrity check reads too. Every read is checked
// against the buffer and every record count against its table: a section
// that does not fit throws ImageBoundsError.
void read_action_lists(const ByteReader& in, const ImageHeader& header, Configuration& config);
void read_flat_softkeys(const ByteReader& in, const ImageHeader& header, Configuration& config);
void read_softkey_labels(const ByteReader& in, const ImageHeader& header, Configuration& config);
void read_page_table(const ByteReader& in, const ImageHeader& header, Configuration& config);
void read_device_table(const ByteReader& in, const ImageHeader& header, Configuration& config);
void read_device_names(const ByteReader& in, const ImageHeader& header, Configuration& config);
// Copies the flat soft keys into home_pages and device_pages: device pages
// arrive in rows 0 upward, in image order.
void expand_flat_softkeys(Configuration& config);

// Reads a whole image (and the learned-key tail behind it, when the buffer
// has one) into the tables of `config`, which the caller has reset as a new
// Configuration. Repairs first_step, step_count and value as it goes; throws
// ImageBoundsError for anything that does not fit, including tables that the
// tree could not be built from. `progress` hears 10 to 100.
void read_image_tables(std::vector<std::uint8_t>& buffer, Configuration& config,
                       const std::function<void(int)>& progress = {});

// Loads an image into scratch tables made for document slot `slot`; the slot
// itself is not touched. Throws ImageBoundsError.
std::unique_ptr<Configuration> load_image(std::vector<std::uint8_t>& buffer, int slot,
                                          const std::function<void(int)>& progress = {});

// A learned code of a duration 0 lasts 3000.
void learned_code_durations(Configuration& config);

// The end of datatoarray on loaded tables: they become the slot's, the
// corrupted points are deleted when the user chose to go on and wants it,
// learned codes get their duration, and the tree is built.
void commit_image(Application& app, Configuration& loaded, int slot);

// Turns an image into the tables of document slot `slot` and builds its
// tree. Throws ImageBoundsError before anything of the slot has changed.
void datatoarray(Application& app, std::vector<std::uint8_t>& buffer, int slot);

}  // namespace tesselo
