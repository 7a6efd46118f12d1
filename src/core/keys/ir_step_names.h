#pragma once

#include <filesystem>
#include <vector>

#include "core/ir/brand_list.h"
#include "core/keys/step_text.h"

namespace tesselo {

// Names IR steps for their rows: library codes through search_brandname and
// decode_keyname, typed RC codes through the decoders on the stored words.
class LibraryStepNames : public IrStepNames {
public:
    // The brand list and key list of the home folder's "Data base" folder.
    explicit LibraryStepNames(const std::filesystem::path& home);
    LibraryStepNames(std::vector<std::uint8_t> brandlist, std::vector<std::uint8_t> keylist);

    std::array<std::string, 3> ir_parts(const Configuration& config, const ActionStep& step) const override;

private:
    std::array<std::string, 3> library_parts(const ActionStep& step) const;

    std::vector<std::uint8_t> brandlist_;
    std::vector<std::uint8_t> keylist_;
    std::vector<BrandRecord> records_;
};

// The protocol fields of a stored RC code, as its row shows them: T2 and T3.
std::array<std::string, 2> rc_step_fields(const Configuration& config, const ActionStep& step);

}  // namespace tesselo
