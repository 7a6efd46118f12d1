#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/ir/ir_storage.h"

namespace tesselo {

// My Database: the user's own store of IR codes, in three random-access
// files of the program's folder. It belongs to the installation, not to a
// document. Records are numbered from 1; 3 to 10 are unused, real data starts
// at 11. Integers are 32-bit little-endian.
inline constexpr const char* mykey_file_name = "mykey.fil";
inline constexpr const char* mydata_file_name = "mydata.fil";
inline constexpr const char* mylist_file_name = "mylist.fil";
inline constexpr int mykey_record_length = 212;
inline constexpr int mydata_record_length = 124;
inline constexpr int mylist_record_length = 116;
inline constexpr int mydb_name_bytes = 50;
inline constexpr int mydb_first_record = 11;

// The levels of the tree, each headed by a record of its number.
inline constexpr int level_brand = 11;
inline constexpr int level_device = 12;
inline constexpr int level_model = 13;
inline constexpr int level_function = 14;
inline constexpr int mydb_first_name = 15;

inline const std::string mydb_free_name = "_##FREE##_";
inline const std::string mydb_end_name = "_##END##_";
inline const std::string select_one = "Select one";

// Kinds of a mykey.fil record: the low byte 4 with the word count in the
// next byte, or 0x4005 for a learned code. Nothing else is kept in the kind.
inline constexpr std::uint32_t mykey_kind_code = 4;
inline constexpr std::uint32_t mykey_kind_learned = 0x4005;

// A record of mylist.fil or mydata.fil, its name right-trimmed.
struct MyDbRecord {
    std::int32_t number = 0;
    std::string name;
    // mylist: a name's level. mydata: a head's own number; for a node the
    // head of the list it stands on: 11 for a brand, else its parent node.
    std::int32_t link = 0;
    std::int32_t next_to_use = 0;  // record 1: the next record to use
    // mydata: the records in use, chained from 11 in the order they were
    // made; record 2 names the last.
    std::int32_t previous = 0;
    std::int32_t next = 0;
};

// A record of mykey.fil.
struct MyKeyRecord {
    std::int32_t number = 0;
    std::uint32_t kind = 0;
    std::array<std::uint8_t, 128> data{};
    std::array<std::uint8_t, 64> format{};
    std::uint32_t data_sum = 0;
    std::uint32_t format_sum = 0;
    std::int32_t owner = 0;  // the mydata.fil record that owns the code
};

// The bytes of records, as the files hold them.
std::vector<std::uint8_t> encode_name_record(const MyDbRecord& record, int record_length);
MyDbRecord decode_name_record(const std::uint8_t* bytes, int record_length);
std::vector<std::uint8_t> encode_key_record(const MyKeyRecord& record);
MyKeyRecord decode_key_record(const std::uint8_t* bytes);

// A code as a mykey.fil record holds it, and back. The format's id is not
// in the record: it is the id of the built-in RC format with the same words,
// else 0 (MyDatabaseStore::code_of also asks the IR library).
MyKeyRecord key_record_of(const IrCodeValue& code);
IrCodeValue code_of_key_record(const MyKeyRecord& record);

// The four names of a registered code: brand, device, model, function.
using MyDbNames = std::array<std::string, 4>;

// The three files, loaded into memory and written through record by record.
class MyDatabaseStore {
public:
    explicit MyDatabaseStore(std::filesystem::path folder);

    // open_mykey, open_mylist, open_mydata: reads each file; one that is not
    // there is created in its fresh state. False, with `error` set, when a
    // file can be neither read nor created.
    bool load();
    const std::string& error() const { return error_; }
    const std::filesystem::path& folder() const { return folder_; }

    // get_mykey_record: 2 for a number below 11 or beyond the end, 0 for a
    // kind whose low byte is neither 4 nor 5, 1 otherwise.
    int get_mykey_record(int number, MyKeyRecord& out) const;
    // put_mykey_record: writes `code` as record `number` (0: a new record at
    // the end, which updates records 2 and 1) owned by mydata record `owner`.
    // The record's number, or -1 when the file cannot be written.
    int put_mykey_record(int number, int owner, const IrCodeValue& code);
    // Record 1's count of codes.
    int code_count() const;

    // The names the combo boxes know for a level (mylist.fil), in the order
    // they were added.
    std::vector<std::string> list_names(int level) const;
    // Adds a name to a level's list; false when the file cannot be written.
    bool add_list_name(int level, const std::string& name);

    // The code of a record, its format's id found by the format's words
    // among the built-in RC formats and the IR library's formats.
    IrCodeValue code_of(const MyKeyRecord& record) const;

    // find_mydata_name: the node of that name on `level` whose parent is
    // `parent` (0 for a brand), or 0.
    int find_mydata_name(const std::string& name, int level, int parent) const;
    // add_mydata_name: a new node; its number, or -1 when the file cannot be written.
    int add_mydata_name(int level, const std::string& name, int parent);
    // The nodes of `level` under `parent`, by number.
    std::vector<int> mydata_children(int level, int parent) const;
    std::optional<MyDbRecord> mydata_record(int number) const;
    // The mykey.fil record that function node `node` owns, or 0.
    int code_record(int node) const;

    // The code of a function node, with its chain verified from the function
    // up to the brand; nothing when a link is broken.
    std::optional<MyKeyRecord> code_of_function(int node) const;
    // The names of the registered code that holds the same code, if any.
    std::optional<MyDbNames> names_of_code(const IrCodeValue& code) const;

private:
    // A file on disk and its records in memory, decoded; index n - 1 holds record n.
    struct File {
        std::filesystem::path path;
        int record_length = 0;
        int records = 0;
    };

    bool open(File& file, const char* name, int record_length, const std::vector<std::uint8_t>& fresh,
              std::vector<std::uint8_t>& bytes);
    bool write_record(File& file, int number, const std::vector<std::uint8_t>& record);
    MyDbRecord name_record(const std::vector<MyDbRecord>& records, int number) const;
    bool put_name_record(File& file, std::vector<MyDbRecord>& records, const MyDbRecord& record);
    // Takes the next record to use of a name file (record 1), noting it as
    // the last in use (record 2).
    int take_record(File& file, std::vector<MyDbRecord>& records);
    std::optional<MyDbNames> names_of_function(int node) const;
    // The level (11 to 14) of a node by the heads of its lists, or 0.
    int level_of(int node) const;
    // Files of the earlier layout (a node's level at 58, its parent at 66, a
    // function's code at 70, the format's id in a code's kind) are written
    // again in this one, every code kept. False when one cannot be written.
    bool convert_earlier_layout();

    std::filesystem::path folder_;
    File mykey_, mydata_, mylist_;
    std::vector<MyKeyRecord> keys_;
    std::vector<MyDbRecord> data_, list_;
    std::string error_;
};

// The fresh contents of each file.
std::vector<std::uint8_t> fresh_name_file(int record_length, bool chained);
std::vector<std::uint8_t> fresh_mykey_file();

}  // namespace tesselo
