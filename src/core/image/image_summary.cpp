#include "core/image/image_summary.h"

#include <bit>

#include "core/image/byte_reader.h"
#include "core/image/image_layout.h"

namespace tesselo {

ImageSummary summarize_image(const std::vector<std::uint8_t>& buffer)
{
    const ByteReader in(buffer);
    ImageSummary s;
    for (int e = 0; e < header_entries; ++e) s.header[static_cast<std::size_t>(e)] = in.u24(4 * e);
    const auto at = [&](int section) { return static_cast<std::int64_t>(s.header[static_cast<std::size_t>(section)]) - image_link_base; };
    const auto span = [&](int from, int to, int record) {
        const std::int64_t bytes = at(to) - at(from);
        if (bytes < 0) throw ImageBoundsError();
        return static_cast<int>(bytes / record);
    };
    s.image_size = at(sec_end_mark) + end_mark_bytes;
    if (s.image_size > static_cast<std::int64_t>(buffer.size())) throw ImageBoundsError();
    s.file_size = static_cast<std::int64_t>(buffer.size());
    s.devices = span(sec_hardkeys, sec_hardkey_labels, 4 * hardkeys_per_device) - 1;
    s.pages = span(sec_page_table, sec_device_table, 4);
    s.soft_keys = span(sec_flat_softkeys, sec_softkey_labels, 7);
    s.lists = in.u16(at(sec_action_lists));
    s.steps = in.u16(at(sec_action_steps));
    s.ir_formats = at(sec_ir_format_ids) > at(sec_ir_formats) ? in.u16(at(sec_ir_formats)) : 0;
    s.ir_records = at(sec_ir_data_index) > at(sec_ir_data) ? in.u16(at(sec_ir_data)) : 0;
    for (int i = 0; i < learning_bitmap_bytes; ++i)
        s.learned_codes += std::popcount(static_cast<unsigned>(in.u8(at(sec_learning_bitmap) + i)));
    return s;
}

}  // namespace tesselo
