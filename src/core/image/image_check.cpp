#include "core/image/image_check.h"

#include <memory>

#include "core/image/byte_reader.h"
#include "core/image/image_layout.h"
#include "core/image/image_reader.h"
#include "core/image/open_state.h"
#include "core/model/configuration.h"
#include "core/tree/node_keys.h"

namespace tesselo {

namespace {

class CheckWalk {
public:
    CheckWalk(const Configuration& c, ErrorList& errors, std::vector<std::string>& rows)
        : c_(c), errors_(errors), rows_(rows)
    {
        errors_.records[0] = {};
        rows_.clear();
    }

    void add(std::uint8_t type, int first, int second, const std::string& where)
    {
        const int n = errors_.records[0].error_count + 1;
        if (n >= error_list_rows) throw ImageBoundsError();
        auto& r = errors_.records[static_cast<std::size_t>(n)];
        r.error_type = type;
        r.first_index = first;
        r.second_index = second;
        errors_.records[0].error_count = static_cast<std::int16_t>(n);
        rows_.push_back(where);
    }

    bool has(std::uint8_t type, int first, int second) const
    {
        for (int i = 1; i <= errors_.records[0].error_count; ++i) {
            const auto& r = errors_.records[static_cast<std::size_t>(i)];
            if (r.error_type == type && r.first_index == first && r.second_index == second) return true;
        }
        return false;
    }

    // The device row and the 1-based page of page_table entry `page`.
    void place(int page, int& device, int& page_in_device) const
    {
        device = 0;
        int first = 0;
        for (int d = 0; d < device_rows; ++d) {
            const int count = c_.device_table[static_cast<std::size_t>(d)].page_count;
            if (page < first + count) {
                device = d;
                page_in_device = page - first + 1;
                return;
            }
            first += count;
        }
        page_in_device = page + 1;
    }

    std::string device_name(int device) const
    {
        if (device == 0) return "HOME";
        const std::string name = decode_device_name(c_.device_name_table[static_cast<std::size_t>(device)].name);
        return name.empty() ? "DEVICE" + std::to_string(device) : name;
    }

    std::string words(int device, int page_in_device, int key) const
    {
        return device_name(device) + "/PAGE" + std::to_string(page_in_device) + "/KEY" + std::to_string(key);
    }

    void walk_pairs(int pages)
    {
        std::size_t flat = 0;
        for (int p = 0; p < pages; ++p) {
            const int count = c_.page_table[static_cast<std::size_t>(p)].key_count;
            if (flat + static_cast<std::size_t>(count) > c_.flat_softkeys.size()) throw ImageBoundsError();
            int device = 0, page_in_device = 0;
            place(p, device, page_in_device);
            const SoftKey* keys = &c_.flat_softkeys[flat];
            for (int b = 1; b < count; ++b)
                for (int a = 0; a < b; ++a) {
                    const SoftKey& early = keys[a];
                    const SoftKey& late = keys[b];
                    // The two halves of a split key may share their label, in either order.
                    if (late.label_index != no_index && early.label_index == late.label_index &&
                        early.position != late.position + 128 && late.position != early.position + 128)
                        add(error_shared_label, late.label_index, 0, words(device, page_in_device, b));
                }
            for (int b = 1; b < count; ++b)
                for (int a = 0; a < b; ++a)
                    if (keys[b].action_list != no_index && keys[a].action_list == keys[b].action_list)
                        add(error_shared_action, keys[b].label_index, keys[b].action_list, words(device, page_in_device, b));
            flat += static_cast<std::size_t>(count);
        }
    }

    void walk_half_keys()
    {
        const int H = c_.device_table[0].page_count;
        int T = 0;
        for (const auto& device : c_.device_table) T += device.page_count;
        for (int k = 0; k < T - H && k < device_page_rows; ++k) {
            const auto& slots = c_.device_pages[static_cast<std::size_t>(k)].slots;
            const int count = c_.page_table[static_cast<std::size_t>(H + k)].key_count;
            int device = 0, page_in_device = 0;
            place(H + k, device, page_in_device);
            for (int s = 0; s < count && s < softkeys_per_page; ++s) {
                const int position = slots[static_cast<std::size_t>(s)].position;
                if (position <= 128) continue;
                // The right button stands beside its left one: behind it, as the
                // editor writes a split row, or in front of it, as older files have it.
                const bool partner = (s + 1 < count && slots[static_cast<std::size_t>(s + 1)].position + 128 == position) ||
                                     (s > 0 && slots[static_cast<std::size_t>(s - 1)].position + 128 == position);
                if (!partner && !has(error_half_key, page_in_device, device))
                    add(error_half_key, page_in_device, device, words(device, page_in_device, s));
            }
        }
    }

private:
    const Configuration& c_;
    ErrorList& errors_;
    std::vector<std::string>& rows_;
};

}  // namespace

bool check_image(const std::vector<std::uint8_t>& buffer, ErrorList& errors, std::vector<std::string>& rows)
{
    auto scratch = std::make_unique<Configuration>();
    const ByteReader in(buffer);
    const ImageHeader header = read_header(in);
    read_action_lists(in, header, *scratch);
    read_flat_softkeys(in, header, *scratch);
    read_softkey_labels(in, header, *scratch);
    read_page_table(in, header, *scratch);
    read_device_table(in, header, *scratch);
    read_device_names(in, header, *scratch);

    CheckWalk walk(*scratch, errors, rows);
    const std::int64_t pages = (static_cast<std::int64_t>(header[sec_device_table]) - header[sec_page_table]) / 4;
    walk.walk_pairs(static_cast<int>(pages < 0 ? 0 : pages));
    expand_flat_softkeys(*scratch);
    walk.walk_half_keys();
    return errors.count() > 0;
}

}  // namespace tesselo
