#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tesselo {

// The words for a code that the library does not know.
inline const std::string unknown_code = "Unknow code";

// The brand of a stored library code id, found in the brand list held as
// bytes; "Unknow code" for 0 and for an id without an entry.
std::string search_brandname(const std::vector<std::uint8_t>& brandlist, int code);

// One record of the brand list: "*" and the code id in four digits, three
// bytes, the brand up to "#", then comma-separated code set labels.
struct BrandRecord {
    int code = 0;
    std::string brand;
    std::vector<std::string> labels;  // "tv000"
};
std::vector<BrandRecord> read_brandlist(const std::vector<std::uint8_t>& brandlist);

// The brands that have code sets of a category (by label prefix), in the
// order of the list, each once.
std::vector<std::string> brands_of_category(const std::vector<BrandRecord>& records, const std::string& prefix);

// `check_device`: the labels ("tv000:") of a brand's code sets in a category.
std::vector<std::string> check_device(const std::vector<BrandRecord>& records, const std::string& prefix,
                                      const std::string& brand);

// The code id of a code set's label ("tv000:" or "tv000"), or 0.
int code_of_label(const std::vector<BrandRecord>& records, const std::string& label);

}  // namespace tesselo
