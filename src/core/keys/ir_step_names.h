#pragma once

#include <filesystem>
#include <vector>

#include "core/ir/brand_list.h"
#include "core/keys/step_text.h"

namespace tesselo {

class MyDatabaseStore;

// Names IR steps for their rows: library codes through search_brandname and
// decode_keyname, typed RC codes through the decoders on the stored words,
// My Database codes by the names they were registered under.
class LibraryStepNames : public IrStepNames {
public:
    // The brand list and key list of the home folder's "Data base" folder.
    explicit LibraryStepNames(const std::filesystem::path& home, const MyDatabaseStore* my_database = nullptr);
    LibraryStepNames(std::vector<std::uint8_t> brandlist, std::vector<std::uint8_t> keylist,
                     const MyDatabaseStore* my_database = nullptr);

    std::array<std::string, 3> ir_parts(const Configuration& config, const ActionStep& step) const override;

private:
    std::array<std::string, 3> library_parts(const ActionStep& step) const;
    std::array<std::string, 3> my_database_parts(const Configuration& config, const ActionStep& step) const;

    std::vector<std::uint8_t> brandlist_;
    std::vector<std::uint8_t> keylist_;
    std::vector<BrandRecord> records_;
    const MyDatabaseStore* my_database_ = nullptr;
};

// The protocol fields of a stored RC code, as its row shows them: T2 and T3.
std::array<std::string, 2> rc_step_fields(const Configuration& config, const ActionStep& step);

}  // namespace tesselo
