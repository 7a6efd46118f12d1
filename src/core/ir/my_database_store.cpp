#include "core/ir/my_database_store.h"

#include "core/ir/ir_library.h"
#include "core/ir/ir_library_layout.h"
#include "core/ir/rc_formats.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <numeric>
#include <system_error>

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

void put32(std::uint8_t* p, std::uint32_t v)
{
    for (int i = 0; i < 4; ++i) p[i] = static_cast<std::uint8_t>(v >> (8 * i));
}

std::uint32_t get32(const std::uint8_t* p)
{
    return static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8 |
           static_cast<std::uint32_t>(p[2]) << 16 | static_cast<std::uint32_t>(p[3]) << 24;
}

std::int32_t get_i32(const std::uint8_t* p) { return static_cast<std::int32_t>(get32(p)); }

std::string right_trimmed(std::string text)
{
    while (!text.empty() && (text.back() == ' ' || text.back() == '\0')) text.pop_back();
    return text;
}

// Offsets inside a name record (mylist.fil and mydata.fil).
constexpr int name_at = 8;
constexpr int link_at = 58;
constexpr int next_to_use_at = 62;
constexpr int previous_at = 66;
constexpr int next_at = 70;

// Offsets inside a mykey.fil record.
constexpr int kind_at = 4;
constexpr int data_at = 8;
constexpr int format_at = 136;
constexpr int data_sum_at = 200;
constexpr int format_sum_at = 204;
constexpr int owner_at = 208;

std::uint32_t byte_sum(const std::uint8_t* p, int n) { return std::accumulate(p, p + n, 0u); }

bool is_free(const MyDbRecord& r) { return r.name == mydb_free_name; }

// The id of the built-in RC format with these words, or 0.
std::int16_t rc_format_id(const IrFormatRecord& format)
{
    const std::pair<void (*)(IrFormatRecord&), std::int16_t> formats[] = {
        {default_IR5Type, format_id_rc5}, {default_IR5XType, format_id_rc5x},
        {default_IR60Type, format_id_rc6}, {default_IR6AType, format_id_rc6a}};
    for (const auto& [fill, id] : formats) {
        IrFormatRecord record{};
        fill(record);
        if (record == format) return id;
    }
    return 0;
}

}  // namespace

std::vector<std::uint8_t> encode_name_record(const MyDbRecord& record, int record_length)
{
    std::vector<std::uint8_t> bytes(at(record_length), 0);
    put32(&bytes[0], static_cast<std::uint32_t>(record.number));
    put32(&bytes[4], static_cast<std::uint32_t>(record.number));
    for (int i = 0; i < mydb_name_bytes; ++i)
        bytes[at(name_at + i)] = i < static_cast<int>(record.name.size()) ? static_cast<std::uint8_t>(record.name[at(i)]) : ' ';
    put32(&bytes[link_at], static_cast<std::uint32_t>(record.link));
    put32(&bytes[next_to_use_at], static_cast<std::uint32_t>(record.next_to_use));
    if (record_length == mydata_record_length) {
        put32(&bytes[previous_at], static_cast<std::uint32_t>(record.previous));
        put32(&bytes[next_at], static_cast<std::uint32_t>(record.next));
    }
    return bytes;
}

MyDbRecord decode_name_record(const std::uint8_t* bytes, int record_length)
{
    MyDbRecord r;
    r.number = get_i32(bytes);
    r.name = right_trimmed(std::string(reinterpret_cast<const char*>(bytes + name_at), mydb_name_bytes));
    r.link = get_i32(bytes + link_at);
    r.next_to_use = get_i32(bytes + next_to_use_at);
    if (record_length == mydata_record_length) {
        r.previous = get_i32(bytes + previous_at);
        r.next = get_i32(bytes + next_at);
    }
    return r;
}

std::vector<std::uint8_t> encode_key_record(const MyKeyRecord& record)
{
    std::vector<std::uint8_t> bytes(mykey_record_length, 0);
    put32(&bytes[0], static_cast<std::uint32_t>(record.number));
    put32(&bytes[kind_at], record.kind);
    std::copy(record.data.begin(), record.data.end(), bytes.begin() + data_at);
    std::copy(record.format.begin(), record.format.end(), bytes.begin() + format_at);
    put32(&bytes[data_sum_at], record.data_sum);
    put32(&bytes[format_sum_at], record.format_sum);
    put32(&bytes[owner_at], static_cast<std::uint32_t>(record.owner));
    return bytes;
}

MyKeyRecord decode_key_record(const std::uint8_t* bytes)
{
    MyKeyRecord r;
    r.number = get_i32(bytes);
    r.kind = get32(bytes + kind_at);
    std::copy_n(bytes + data_at, r.data.size(), r.data.begin());
    std::copy_n(bytes + format_at, r.format.size(), r.format.begin());
    r.data_sum = get32(bytes + data_sum_at);
    r.format_sum = get32(bytes + format_sum_at);
    r.owner = get_i32(bytes + owner_at);
    return r;
}

MyKeyRecord key_record_of(const IrCodeValue& code)
{
    MyKeyRecord r;
    if (code.learned) {
        r.kind = mykey_kind_learned;
        std::copy(code.learned_bytes.begin(), code.learned_bytes.end(), r.data.begin());
    } else {
        const int count = std::clamp(code.word_count, 0, ir_record_words);
        r.kind = mykey_kind_code | static_cast<std::uint32_t>(count) << 8;
        for (int i = 0; i < count; ++i) {
            const auto w = static_cast<std::uint16_t>(code.words[at(i)]);
            r.data[at(2 * i)] = static_cast<std::uint8_t>(w & 0xFF);
            r.data[at(2 * i + 1)] = static_cast<std::uint8_t>(w >> 8);
        }
        for (int i = 0; i < ir_format_words; ++i) {
            const auto w = static_cast<std::uint16_t>(code.format[at(i)]);
            r.format[at(2 * i)] = static_cast<std::uint8_t>(w & 0xFF);
            r.format[at(2 * i + 1)] = static_cast<std::uint8_t>(w >> 8);
        }
    }
    r.data_sum = byte_sum(r.data.data(), 64);
    r.format_sum = byte_sum(r.format.data(), 64);
    return r;
}

IrCodeValue code_of_key_record(const MyKeyRecord& record)
{
    IrCodeValue code;
    if ((record.kind & 0xFF) == 5) {
        code.learned = true;
        std::copy_n(record.data.begin(), code.learned_bytes.size(), code.learned_bytes.begin());
        return code;
    }
    code.word_count = std::clamp<int>(static_cast<int>((record.kind >> 8) & 0xFF), 0, ir_record_words - 2);
    for (int i = 0; i < code.word_count; ++i)
        code.words[at(i)] = static_cast<std::int16_t>(record.data[at(2 * i)] | record.data[at(2 * i + 1)] << 8);
    for (int i = 0; i < ir_format_words; ++i)
        code.format[at(i)] = static_cast<std::int16_t>(record.format[at(2 * i)] | record.format[at(2 * i + 1)] << 8);
    code.format_id = rc_format_id(code.format);
    return code;
}

std::vector<std::uint8_t> fresh_name_file(int record_length, bool chained)
{
    std::vector<std::uint8_t> bytes(at(record_length * level_function), 0);
    const auto put = [&](const MyDbRecord& r) {
        const auto b = encode_name_record(r, record_length);
        std::copy(b.begin(), b.end(), bytes.begin() + (r.number - 1) * record_length);
    };
    put({1, mydb_free_name, 0, mydb_first_name, 0, 0});
    put({2, mydb_end_name, level_function, 0, 0, 0});
    for (int level = level_brand; level <= level_function; ++level) {
        MyDbRecord head{level, select_one, level, 0, 0, 0};
        if (chained) {
            head.previous = level == level_brand ? 0 : level - 1;
            head.next = level == level_function ? 0 : level + 1;
        }
        put(head);
    }
    return bytes;
}

std::vector<std::uint8_t> fresh_mykey_file()
{
    std::vector<std::uint8_t> bytes(at(mykey_record_length * (mydb_first_record - 1)), 0);
    put32(&bytes[0], 1);
    put32(&bytes[kind_at], 0);  // no codes yet
    put32(&bytes[mykey_record_length], 2);
    put32(&bytes[mykey_record_length + kind_at], mydb_first_record);  // the next record to use
    return bytes;
}

MyDatabaseStore::MyDatabaseStore(std::filesystem::path folder) : folder_(std::move(folder)) {}

bool MyDatabaseStore::open(File& file, const char* name, int record_length, const std::vector<std::uint8_t>& fresh,
                           std::vector<std::uint8_t>& bytes)
{
    file.path = folder_ / name;
    file.record_length = record_length;
    file.records = 0;
    std::error_code ec;
    if (!std::filesystem::exists(file.path, ec)) {
        bytes = fresh;
        std::ofstream out(file.path, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(fresh.data()), static_cast<std::streamsize>(fresh.size()));
        if (!out) {
            error_ = "My Database file " + file.path.string() + " cannot be created";
            return false;
        }
    } else if (!std::filesystem::is_regular_file(file.path, ec)) {
        error_ = "My Database file " + file.path.string() + " is not a file";
        return false;
    } else {
        std::ifstream in(file.path, std::ios::binary);
        if (!in) {
            error_ = "My Database file " + file.path.string() + " cannot be read";
            return false;
        }
        bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    // A torn last record is not a record.
    file.records = static_cast<int>(bytes.size()) / record_length;
    return true;
}

bool MyDatabaseStore::load()
{
    error_.clear();
    keys_.clear();
    data_.clear();
    list_.clear();
    std::vector<std::uint8_t> bytes;
    const bool key = open(mykey_, mykey_file_name, mykey_record_length, fresh_mykey_file(), bytes);
    for (int n = 0; key && n < mykey_.records; ++n) keys_.push_back(decode_key_record(&bytes[at(n * mykey_record_length)]));
    const bool list = open(mylist_, mylist_file_name, mylist_record_length, fresh_name_file(mylist_record_length, false), bytes);
    for (int n = 0; list && n < mylist_.records; ++n)
        list_.push_back(decode_name_record(&bytes[at(n * mylist_record_length)], mylist_record_length));
    const bool data = open(mydata_, mydata_file_name, mydata_record_length, fresh_name_file(mydata_record_length, true), bytes);
    for (int n = 0; data && n < mydata_.records; ++n)
        data_.push_back(decode_name_record(&bytes[at(n * mydata_record_length)], mydata_record_length));
    return key && list && data && convert_earlier_layout();
}

bool MyDatabaseStore::write_record(File& file, int number, const std::vector<std::uint8_t>& record)
{
    const auto offset = static_cast<std::streamoff>(number - 1) * file.record_length;
    std::fstream io(file.path, std::ios::binary | std::ios::in | std::ios::out);
    if (io) {
        io.seekp(offset);
        io.write(reinterpret_cast<const char*>(record.data()), static_cast<std::streamsize>(record.size()));
        io.flush();
    }
    if (!io) {
        error_ = "My Database file " + file.path.string() + " cannot be written";
        return false;
    }
    file.records = std::max(file.records, number);
    return true;
}

MyDbRecord MyDatabaseStore::name_record(const std::vector<MyDbRecord>& records, int number) const
{
    if (number < 1 || number > static_cast<int>(records.size())) return {};
    return records[at(number - 1)];
}

bool MyDatabaseStore::put_name_record(File& file, std::vector<MyDbRecord>& records, const MyDbRecord& record)
{
    if (!write_record(file, record.number, encode_name_record(record, file.record_length))) return false;
    if (static_cast<int>(records.size()) < record.number) records.resize(at(record.number));
    records[at(record.number - 1)] = record;
    return true;
}

int MyDatabaseStore::take_record(File& file, std::vector<MyDbRecord>& records)
{
    MyDbRecord first = name_record(records, 1);
    // Names are never given back, so the next record to use is the end of
    // the file, whatever an older file's record 1 says.
    const int number = std::max(static_cast<int>(records.size()) + 1, mydb_first_name);
    first.number = 1;
    first.name = mydb_free_name;
    first.next_to_use = number + 1;
    MyDbRecord last = name_record(records, 2);
    last.number = 2;
    last.name = mydb_end_name;
    last.link = number;
    if (!put_name_record(file, records, first) || !put_name_record(file, records, last)) return -1;
    return number;
}

int MyDatabaseStore::get_mykey_record(int number, MyKeyRecord& out) const
{
    if (number < mydb_first_record || number > static_cast<int>(keys_.size())) return 2;
    out = keys_[at(number - 1)];
    const std::uint32_t low = out.kind & 0xFF;
    return low == 4 || low == 5 ? 1 : 0;
}

int MyDatabaseStore::code_count() const { return keys_.empty() ? 0 : static_cast<int>(keys_[0].kind); }

int MyDatabaseStore::put_mykey_record(int number, int owner, const IrCodeValue& code)
{
    MyKeyRecord record = key_record_of(code);
    record.owner = owner;
    const int records = static_cast<int>(keys_.size());
    const bool append = number < mydb_first_record || number > records;
    if (append) number = std::max(records + 1, mydb_first_record);
    record.number = number;
    if (!write_record(mykey_, number, encode_key_record(record))) return -1;
    if (static_cast<int>(keys_.size()) < number) keys_.resize(at(number));
    keys_[at(number - 1)] = record;
    if (!append) return number;
    // Record 1 counts the codes, record 2 holds the next record to use.
    MyKeyRecord count, next;
    count.number = 1;
    count.kind = static_cast<std::uint32_t>(code_count() + 1);
    next.number = 2;
    next.kind = static_cast<std::uint32_t>(number + 1);
    for (const auto& r : {count, next}) {
        if (!write_record(mykey_, r.number, encode_key_record(r))) return -1;
        keys_[at(r.number - 1)] = r;
    }
    return number;
}

std::vector<std::string> MyDatabaseStore::list_names(int level) const
{
    std::vector<std::string> names;
    for (int n = mydb_first_name; n <= static_cast<int>(list_.size()); ++n) {
        const MyDbRecord& r = list_[at(n - 1)];
        if (r.number == n && r.link == level && !is_free(r)) names.push_back(r.name);
    }
    return names;
}

bool MyDatabaseStore::add_list_name(int level, const std::string& name)
{
    const int number = take_record(mylist_, list_);
    if (number < 0) return false;
    return put_name_record(mylist_, list_, {number, right_trimmed(name.substr(0, mydb_name_bytes)), level, 0, 0, 0});
}

int MyDatabaseStore::find_mydata_name(const std::string& name, int level, int parent) const
{
    const std::string wanted = right_trimmed(name.substr(0, mydb_name_bytes));
    for (int n : mydata_children(level, parent))
        if (data_[at(n - 1)].name == wanted) return n;
    return 0;
}

int MyDatabaseStore::add_mydata_name(int level, const std::string& name, int parent)
{
    // The new record goes at the end of the chain of records in use.
    const int last = name_record(data_, 2).link;
    const int number = take_record(mydata_, data_);
    if (number < 0) return -1;
    const int previous = last >= mydb_first_record && last < number ? last : number - 1;
    const MyDbRecord node{number, right_trimmed(name.substr(0, mydb_name_bytes)), level == level_brand ? level_brand : parent,
                          0, previous, 0};
    if (!put_name_record(mydata_, data_, node)) return -1;
    MyDbRecord before = name_record(data_, previous);
    if (before.number != previous) return number;
    before.next = number;
    return put_name_record(mydata_, data_, before) ? number : -1;
}

std::vector<int> MyDatabaseStore::mydata_children(int level, int parent) const
{
    std::vector<int> nodes;
    for (int n = mydb_first_name; n <= static_cast<int>(data_.size()); ++n) {
        const MyDbRecord& r = data_[at(n - 1)];
        if (r.number != n || is_free(r)) continue;
        if (level == level_brand ? r.link == level_brand : r.link == parent && level_of(n) == level) nodes.push_back(n);
    }
    return nodes;
}

std::optional<MyDbRecord> MyDatabaseStore::mydata_record(int number) const
{
    if (number < 1 || number > static_cast<int>(data_.size())) return std::nullopt;
    return data_[at(number - 1)];
}

int MyDatabaseStore::code_record(int node) const
{
    int found = 0;
    for (int n = mydb_first_record; n <= static_cast<int>(keys_.size()); ++n) {
        const MyKeyRecord& r = keys_[at(n - 1)];
        const std::uint32_t low = r.kind & 0xFF;
        if (r.number == n && r.owner == node && (low == 4 || low == 5)) found = n;
    }
    return found;
}

IrCodeValue MyDatabaseStore::code_of(const MyKeyRecord& record) const
{
    IrCodeValue code = code_of_key_record(record);
    if (code.learned || code.format_id != 0) return code;
    const auto library = ir_library_path(folder_);
    auto handle = CreateGetIR();
    IrFormatRecord format{};
    GetIRType(handle.get(), 0, format, library);  // reads the library once
    for (const std::int16_t id : read_ir_directory(handle->bytes).format_ids)
        if (GetIRType(handle.get(), id, format, library) == 1 && format == code.format) {
            code.format_id = id;
            break;
        }
    return code;
}

std::optional<MyKeyRecord> MyDatabaseStore::code_of_function(int node) const
{
    if (level_of(node) != level_function) return std::nullopt;
    MyKeyRecord record;
    if (get_mykey_record(code_record(node), record) != 1) return std::nullopt;
    if (!names_of_function(node)) return std::nullopt;
    return record;
}

int MyDatabaseStore::level_of(int node) const
{
    // Up through the heads of the lists, to the brands' head.
    int n = node;
    for (int depth = 0; depth < level_function - level_brand + 1; ++depth) {
        const MyDbRecord r = name_record(data_, n);
        if (n < mydb_first_name || r.number != n || is_free(r)) return 0;
        n = r.link;
        if (n == level_brand) return level_brand + depth;
    }
    return 0;
}

std::optional<MyDbNames> MyDatabaseStore::names_of_function(int node) const
{
    // The chains from the function up to the brand: 14, 13, 12, 11.
    MyDbNames names;
    int n = node;
    for (int level = level_function; level >= level_brand; --level) {
        const MyDbRecord r = name_record(data_, n);
        if (n < mydb_first_name || r.number != n || is_free(r)) return std::nullopt;
        names[at(level - level_brand)] = r.name;
        n = r.link;
    }
    if (n != level_brand) return std::nullopt;
    return names;
}

std::optional<MyDbNames> MyDatabaseStore::names_of_code(const IrCodeValue& code) const
{
    const MyKeyRecord wanted = key_record_of(code);
    for (int n = mydb_first_record; n <= static_cast<int>(keys_.size()); ++n) {
        const MyKeyRecord& record = keys_[at(n - 1)];
        bool same = false;
        if (code.learned) {
            same = record.kind == mykey_kind_learned &&
                   std::equal(record.data.begin(), record.data.begin() + 64, wanted.data.begin());
        } else if (record.kind == wanted.kind) {
            // Word 0 of a stored code is its format's index: the words from 1 on say which code it is.
            const int bytes = 2 * code.word_count;
            same = std::equal(record.data.begin() + 2, record.data.begin() + bytes, wanted.data.begin() + 2);
        }
        if (!same || record.number != n) continue;
        if (auto names = names_of_function(record.owner)) return names;
    }
    return std::nullopt;
}

}  // namespace tesselo
