#include "core/keys/ir_step_names.h"

#include "core/ir/ir_categories.h"
#include "core/ir/ir_data_dialog.h"
#include "core/ir/key_list.h"
#include "core/ir/my_database_store.h"
#include "core/ir/rc_codes.h"
#include "core/keys/step_chain.h"

namespace tesselo {

LibraryStepNames::LibraryStepNames(const std::filesystem::path& home, const MyDatabaseStore* my_database)
    : my_database_(my_database)
{
    IrLibraryFiles files = load_ir_library_files(home);
    brandlist_ = std::move(files.brandlist);
    keylist_ = std::move(files.keylist);
    records_ = read_brandlist(brandlist_);
}

LibraryStepNames::LibraryStepNames(std::vector<std::uint8_t> brandlist, std::vector<std::uint8_t> keylist,
                                   const MyDatabaseStore* my_database)
    : brandlist_(std::move(brandlist)), keylist_(std::move(keylist)), records_(read_brandlist(brandlist_)),
      my_database_(my_database)
{
}

std::array<std::string, 3> LibraryStepNames::library_parts(const ActionStep& step) const
{
    const std::string brand = search_brandname(brandlist_, step.value);
    if (brand == unknown_code) return {"MYDATABASE CODE", "", " "};
    // The code's first code set gives the device type and the key names.
    std::string label, device_type;
    for (const auto& record : records_)
        if (record.code == step.value && !record.labels.empty()) {
            label = record.labels.front();
            break;
        }
    if (const auto parsed = parse_codeset_label(label))
        device_type = ir_categories[static_cast<std::size_t>(parsed->first)].display_name;
    return {"IR CODE", device_type + "-" + brand + "-", "- " + decode_keyname(keylist_, label, step.extra)};
}

std::array<std::string, 3> LibraryStepNames::my_database_parts(const Configuration& config, const ActionStep& step) const
{
    const bool learned = step.step_type == step_mydatabase_learning;
    std::array<std::string, 3> parts{learned ? "MYDATABASE LEARNING CODE" : "MYDATABASE CODE", "", ""};
    if (!my_database_) return parts;
    // The code is found in My Database by what it sends: a code registered
    // under names shows them, one that My Database no longer holds does not.
    const int stored = step_number_value(step);
    const IrCodeValue code = learned ? stored_learned_code(config, stored) : stored_ir_code(config, stored);
    if (const auto names = my_database_->names_of_code(code)) {
        parts[1] = (*names)[0] + "-" + (*names)[1] + "-";
        parts[2] = (*names)[2] + "- " + (*names)[3];
    }
    return parts;
}

std::array<std::string, 2> rc_step_fields(const Configuration& config, const ActionStep& step)
{
    const int record = step_number_value(step);
    if (record >= ir_data_rows) return {"", ""};
    const IrCodeWords& words = config.ir_data.record(record);
    const int count = config.ir_data_index[static_cast<std::size_t>(record)].length / 2;
    RcFields f;
    const auto n = [](long v) { return std::to_string(v); };
    switch (step.step_type) {
    case step_rc5:
        if (Get_RC5_Code(words, count, f)) return {n(f.system), n(f.command)};
        break;
    case step_rc5x:
        if (Get_RC5x_Code(words, count, f)) return {n(f.system), n(f.command) + " " + n(f.data)};
        break;
    case step_rc6:
        if (Get_RC6_m0_Code(words, count, f)) return {n(f.system), n(f.command)};
        break;
    case step_rc6a:
        if (Get_RC6_mA_Code(words, count, f)) return {n(f.customer), n(f.system) + " " + n(f.command)};
        break;
    default: break;
    }
    return {"", ""};
}

std::array<std::string, 3> LibraryStepNames::ir_parts(const Configuration& config, const ActionStep& step) const
{
    switch (step.step_type) {
    case step_ir_code: return library_parts(step);
    case step_rc5: case step_rc5x: case step_rc6: case step_rc6a: {
        static const char* names[] = {"", "RC5", "RC5X", "RC6", "RC6A"};
        const auto fields = rc_step_fields(config, step);
        return {names[step.step_type], fields[0], fields[1]};
    }
    case step_mydatabase:
    case step_mydatabase_learning: return my_database_parts(config, step);
    default: return {"", "", ""};
    }
}

}  // namespace tesselo
