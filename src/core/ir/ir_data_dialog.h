#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/ir/brand_list.h"
#include "core/ir/ir_library.h"

namespace tesselo {

class Application;

// The three files of the IR library, as read from a home folder's "Data
// base" folder; a file that is missing is empty.
struct IrLibraryFiles {
    std::filesystem::path library_path;
    std::vector<std::uint8_t> library;
    std::vector<std::uint8_t> keylist;
    std::vector<std::uint8_t> brandlist;
};
IrLibraryFiles load_ir_library_files(const std::filesystem::path& home);

// The logic of the IRData dialog: category, brand, code set and function,
// and OK, which fetches the code into the current code.
class IRData {
public:
    explicit IRData(Application& app);
    IRData(Application& app, IrLibraryFiles files);

    // The category names, in the order of their codes.
    std::vector<std::string> categories() const;
    void choose_category(int index);
    const std::vector<std::string>& brands() const { return brands_; }
    void choose_brand(int index);
    // "Code Set-" and three digits, one per code set of the brand.
    const std::vector<std::string>& codesets() const { return codeset_names_; }
    const std::vector<std::string>& codeset_labels() const { return codeset_labels_; }
    void choose_codeset(int index);
    const std::vector<std::string>& functions() const { return functions_; }
    void choose_function(int index);
    // Chooses the category, brand and code set of a code set's label
    // ("tv000" or "tv000:"), as a user walks to it; false when the lists do
    // not hold it.
    bool choose_codeset_label(const std::string& label);

    // OK: true when the chosen code is now the current code; false after a
    // message, the dialog staying open.
    bool ok();

private:
    Application& app_;
    IrLibraryFiles files_;
    std::vector<BrandRecord> records_;
    std::unique_ptr<GetIR> handle_;
    int category_ = -1, brand_ = -1, codeset_ = -1, function_ = -1;
    std::vector<std::string> brands_, codeset_labels_, codeset_names_, functions_;
};

}  // namespace tesselo
