#pragma once

#include <array>
#include <cstdint>

namespace tesselo {

// One fault that the integrity check found.
struct ErrorRecord {
    std::int32_t first_index = 0;
    std::int32_t second_index = 0;
    std::int16_t error_count = 0;  // meaningful in record 0 only: the number of records
    std::uint8_t error_type = 0;   // 1 shared label, 2 shared action list, 3 half key
};

inline constexpr int error_list_rows = 3000;
inline constexpr std::uint8_t error_shared_label = 1;
inline constexpr std::uint8_t error_shared_action = 2;
inline constexpr std::uint8_t error_half_key = 3;

// The faults, in records 1 up to records[0].error_count.
struct ErrorList {
    std::array<ErrorRecord, error_list_rows> records{};
    int count() const { return records[0].error_count; }
};

// The outcome of ErrorWindow, carried to the Open command and the reader.
inline constexpr std::uint8_t corruption_none = 0;
inline constexpr std::uint8_t corruption_cancelled = 1;
inline constexpr std::uint8_t corruption_go_on = 2;

// What the Open command carries between its steps.
struct OpenState {
    std::uint8_t corruption_flag = corruption_none;
    ErrorList error_list;
    // Set when the last open ended in "file is corrupted".
    bool file_corrupted = false;
};

}  // namespace tesselo
