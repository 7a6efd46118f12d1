#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/ir/my_database_store.h"

namespace tesselo {

class Application;
class Ui;

inline const std::string mydatabase_empty = "Mydatabase is empty!";
inline const std::string default_mdb_name = "default.mdb";

// The Device names that the register form offers besides the user's own:
// "Data base/default.mdb", one name a line between double quotes (a name's
// trailing blanks are its own), "#" starting a comment line. Nothing when the
// file is missing.
std::vector<std::string> read_default_mdb(const std::filesystem::path& home);

// The level of a word of the command line and the Add buttons: "brand",
// "device", "model", "function"; 0 for another word.
int mydb_level_of(const std::string& word);
// "Brand", "Device", "Model" or "Function".
std::string mydb_level_name(int level);

// register_ir_code: the walk from the brand down to the function, adding the
// names the tree lacks; a function that exists asks whether its code is to be
// overwritten. The boxes' "Select one" are refused first, in order.
enum class RegisterOutcome { registered, overwritten, kept, refused, failed };
RegisterOutcome register_ir_code(Ui& ui, MyDatabaseStore& store, const MyDbNames& names, const IrCodeValue& code);

// The MyDatabase form: registers the current code under a brand, a device,
// a model and a function chosen from the lists of mylist.fil.
class MyDatabase {
public:
    explicit MyDatabase(Application& app);

    // Each box's list: "Select one", then the level's names (Device: the
    // names of default.mdb first).
    std::vector<std::string> names(int level) const;
    // The boxes' texts, "Select one" until a name is chosen.
    MyDbNames chosen{select_one, select_one, select_one, select_one};
    // Chooses a name of a box's list; false when the list does not hold it.
    bool choose(int level, const std::string& name);

    // OK: registers the current code; true when the form closes.
    bool ok();

private:
    Application& app_;
    std::vector<std::string> defaults_;
};

// The AddDataBase form, opened by AddBrand, AddDevice, AddModel and
// AddFunction: a new name for a level's list.
class AddDataBase {
public:
    AddDataBase(Application& app, int level);
    // "Add New Brand Name", "Add New Device Name", ...
    std::string caption() const;
    std::string Text1;
    // OK: a name that exists is refused with "<" name "> already exist"; an
    // empty one adds nothing. True when the form closes.
    bool ok();

private:
    Application& app_;
    int level_;
};

// The NewIRData form: picks a registered code, level by level.
class NewIRData {
public:
    explicit NewIRData(Application& app);

    // BuildBrandNameList and the lists below it: "Select one", then the
    // names under the choice above.
    const std::vector<std::string>& names(int level) const;
    // Chooses entry `index` of a box (0 is "Select one"); the boxes below
    // are filled again.
    void choose(int level, int index);
    bool choose_name(int level, const std::string& name);
    int chosen(int level) const;

    // cmdClear: the four boxes back to "Select one"; cmdBuildAll: the lists
    // read again.
    void cmdClear();
    void cmdBuildAll();

    // OK: the chosen function's code, its chain verified up to the brand,
    // becomes the current code (type 128, or 133 for a learned one). False
    // when no function is chosen or its chain is broken.
    bool ok();

private:
    void fill(int level);

    Application& app_;
    std::vector<std::string> names_[4];
    std::vector<int> nodes_[4];
    int chosen_[4] = {0, 0, 0, 0};
};

}  // namespace tesselo
