#include "core/ir/ir_data_dialog.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/ir/ir_categories.h"
#include "core/ir/ir_library_layout.h"
#include "core/ir/key_list.h"

namespace tesselo {

namespace {

std::vector<std::uint8_t> read_all(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) return {};
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

bool in_list(int index, std::size_t size) { return index >= 0 && static_cast<std::size_t>(index) < size; }

}  // namespace

IrLibraryFiles load_ir_library_files(const std::filesystem::path& home)
{
    IrLibraryFiles files;
    files.library_path = ir_library_path(home);
    files.library = read_all(files.library_path);
    files.keylist = read_all(data_base_file(home, ir_keylist_file));
    files.brandlist = read_all(data_base_file(home, ir_brandlist_file));
    return files;
}

IRData::IRData(Application& app) : IRData(app, load_ir_library_files(app.home())) {}

IRData::IRData(Application& app, IrLibraryFiles files)
    : app_(app), files_(std::move(files)), records_(read_brandlist(files_.brandlist)), handle_(CreateGetIR())
{
}

std::vector<std::string> IRData::categories() const
{
    std::vector<std::string> names;
    for (const auto& c : ir_categories) names.emplace_back(c.display_name);
    return names;
}

void IRData::choose_category(int index)
{
    category_ = in_list(index, ir_categories.size()) ? index : -1;
    brands_ = category_ < 0 ? std::vector<std::string>{} : brands_of_category(records_, check_libdevice(category_));
    choose_brand(-1);
}

void IRData::choose_brand(int index)
{
    brand_ = in_list(index, brands_.size()) ? index : -1;
    codeset_labels_.clear();
    codeset_names_.clear();
    if (brand_ >= 0)
        codeset_labels_ = check_device(records_, check_libdevice(category_), brands_[static_cast<std::size_t>(brand_)]);
    for (const auto& label : codeset_labels_) codeset_names_.push_back(codeset_display_name(parse_codeset_label(label)->second));
    choose_codeset(-1);
}

void IRData::choose_codeset(int index)
{
    codeset_ = in_list(index, codeset_labels_.size()) ? index : -1;
    functions_ = codeset_ < 0 ? std::vector<std::string>{}
                              : load_keynames(files_.keylist, codeset_labels_[static_cast<std::size_t>(codeset_)]);
    choose_function(-1);
}

void IRData::choose_function(int index) { function_ = in_list(index, functions_.size()) ? index : -1; }

bool IRData::choose_codeset_label(const std::string& label)
{
    const auto parsed = parse_codeset_label(label);
    if (!parsed) return false;
    const std::string wanted = codeset_label(check_libdevice(parsed->first), parsed->second);
    choose_category(parsed->first);
    for (int b = 0; b < static_cast<int>(brands_.size()); ++b) {
        choose_brand(b);
        const auto found = std::find(codeset_labels_.begin(), codeset_labels_.end(), wanted);
        if (found != codeset_labels_.end()) {
            choose_codeset(static_cast<int>(found - codeset_labels_.begin()));
            return true;
        }
    }
    choose_brand(-1);
    return false;
}

bool IRData::ok()
{
    if (codeset_ < 0 || function_ < 0) {
        app_.ui().message(title_main, "Please select the function key", Icon::exclamation);
        return false;
    }
    const std::string& label = codeset_labels_[static_cast<std::size_t>(codeset_)];
    const std::uint32_t offset = check_deviceoffset(files_.library, label);
    IrFormatRecord format{};
    IrCodeWords words{};
    const int count = GetIRCode(handle_.get(), offset, function_, format, words, files_.library_path);
    if (count <= 0) {
        // The listing names a key that the library cannot give: nothing changes.
        app_.ui().message(title_alt, "The selected IR maybe error please select again!", Icon::exclamation);
        return false;
    }
    auto& code = app_.current_ir;
    code.set_code(format, words, count, std::min(count, 32));
    code.current_ir_type = ir_type_library;
    code.format_id = words[0];
    code.library_code = code_of_label(records_, label);
    code.library_label = label;
    code.library_key = function_;
    code.name = "IR CODE " + label;
    return true;
}

}  // namespace tesselo
