// My Database files written by the editor's earlier layout, converted on
// first use: there a node's 58 held its level, its 66 its parent, a
// function's 70 its code's record in mykey.fil, and a code's kind the id of
// its format in its two high bytes.
#include "core/ir/my_database_store.h"

#include <vector>

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

bool in_use(const std::vector<MyDbRecord>& records, int n)
{
    return n >= 1 && n <= static_cast<int>(records.size()) && records[at(n - 1)].number == n &&
           records[at(n - 1)].name != mydb_free_name;
}

// The earlier layout left the heads' chain ending at 14, whatever nodes
// followed; this one chains the first node, record 15, behind 14.
bool earlier_mydata(const std::vector<MyDbRecord>& data)
{
    bool nodes = false;
    for (int n = mydb_first_name; n <= static_cast<int>(data.size()) && !nodes; ++n) nodes = in_use(data, n);
    return nodes && in_use(data, level_function) && data[at(level_function - 1)].next == 0;
}

}  // namespace

bool MyDatabaseStore::convert_earlier_layout()
{
    // A code's kind holds the word count and nothing above it.
    // The function pointed at its code; now the code's owner alone ties them.
    std::vector<int> owner_of_code(keys_.size() + 1, 0);
    const bool earlier_data = earlier_mydata(data_);
    if (earlier_data)
        for (int n = mydb_first_name; n <= static_cast<int>(data_.size()); ++n)
            if (in_use(data_, n) && data_[at(n - 1)].link == level_function) {
                const int code = data_[at(n - 1)].next;
                if (code >= mydb_first_record && code <= static_cast<int>(keys_.size())) owner_of_code[at(code)] = n;
            }
    for (int n = mydb_first_record; n <= static_cast<int>(keys_.size()); ++n) {
        MyKeyRecord& r = keys_[at(n - 1)];
        if (r.number != n) continue;
        bool changed = false;
        if ((r.kind & 0xFF) == mykey_kind_code && (r.kind >> 16) != 0) {
            r.kind &= 0xFFFF;
            changed = true;
        }
        if (owner_of_code[at(n)] != 0 && r.owner != owner_of_code[at(n)]) {
            r.owner = owner_of_code[at(n)];
            changed = true;
        }
        if (changed && !write_record(mykey_, n, encode_key_record(r))) return false;
    }
    if (!earlier_data) return true;

    // The nodes: the head of the list each stands on, and the chain of the
    // records in use in the order of their numbers, which is the order they
    // were made in.
    std::vector<int> chain;
    for (int n = mydb_first_record; n <= static_cast<int>(data_.size()); ++n)
        if (in_use(data_, n)) chain.push_back(n);
    for (std::size_t i = 0; i < chain.size(); ++i) {
        MyDbRecord r = data_[at(chain[i] - 1)];
        if (r.number >= mydb_first_name) r.link = r.link == level_brand ? level_brand : r.previous;
        r.previous = i == 0 ? 0 : chain[i - 1];
        r.next = i + 1 == chain.size() ? 0 : chain[i + 1];
        if (!put_name_record(mydata_, data_, r)) return false;
    }
    MyDbRecord last = name_record(data_, 2);
    last.number = 2;
    last.name = mydb_end_name;
    last.link = chain.empty() ? level_function : chain.back();
    return put_name_record(mydata_, data_, last);
}

}  // namespace tesselo
