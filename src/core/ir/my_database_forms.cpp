#include "core/ir/my_database_forms.h"

#include <algorithm>
#include <fstream>

#include "core/app/application.h"
#include "core/document/ui.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

std::string right_trimmed(std::string text)
{
    while (!text.empty() && text.back() == ' ') text.pop_back();
    return text;
}

bool store_failed(Ui& ui, const MyDatabaseStore& store)
{
    ui.message(title_main, store.error(), Icon::exclamation);
    return false;
}

// The node of `name` on `level` under `parent`, added when the tree lacks it; -1 on a write failure.
int walk_or_add(MyDatabaseStore& store, int level, const std::string& name, int parent)
{
    const int found = store.find_mydata_name(name, level, parent);
    return found > 0 ? found : store.add_mydata_name(level, name, parent);
}

}  // namespace

std::vector<std::string> read_default_mdb(const std::filesystem::path& home)
{
    std::vector<std::string> names;
    std::ifstream in(home / "Data base" / default_mdb_name);
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const auto open = line.find('"');
        const auto close = line.rfind('"');
        if (line.empty() || line.front() == '#' || open == std::string::npos || close <= open) continue;
        names.push_back(line.substr(open + 1, close - open - 1));
    }
    return names;
}

int mydb_level_of(const std::string& word)
{
    if (word == "brand") return level_brand;
    if (word == "device") return level_device;
    if (word == "model") return level_model;
    if (word == "function") return level_function;
    return 0;
}

std::string mydb_level_name(int level)
{
    static const char* names[] = {"Brand", "Device", "Model", "Function"};
    return level >= level_brand && level <= level_function ? names[level - level_brand] : std::string();
}

RegisterOutcome register_ir_code(Ui& ui, MyDatabaseStore& store, const MyDbNames& names, const IrCodeValue& code)
{
    for (int level = level_brand; level <= level_function; ++level)
        if (right_trimmed(names[at(level - level_brand)]) == select_one) {
            ui.message(title_main, "Please enter " + mydb_level_name(level) + " name", Icon::exclamation);
            return RegisterOutcome::refused;
        }
    int parent = 0;
    for (int level = level_brand; level < level_function; ++level) {
        parent = walk_or_add(store, level, names[at(level - level_brand)], parent);
        if (parent < 0) return store_failed(ui, store), RegisterOutcome::failed;
    }
    const int function = store.find_mydata_name(names[3], level_function, parent);
    if (function > 0) {
        if (ui.ask(title_main, std::string("Do you want to overwirte the code") + "?", Buttons::ok_cancel,
                   Icon::question) != Answer::ok)
            return RegisterOutcome::kept;
        // The function's own record is written again; one that lost its
        // record gets a new one.
        if (store.put_mykey_record(store.code_record(function), function, code) < 0)
            return store_failed(ui, store), RegisterOutcome::failed;
        return RegisterOutcome::overwritten;
    }
    const int node = store.add_mydata_name(level_function, names[3], parent);
    const int number = node < 0 ? -1 : store.put_mykey_record(0, node, code);
    if (number < 0) return store_failed(ui, store), RegisterOutcome::failed;
    return RegisterOutcome::registered;
}

MyDatabase::MyDatabase(Application& app) : app_(app), defaults_(read_default_mdb(app.home())) {}

std::vector<std::string> MyDatabase::names(int level) const
{
    std::vector<std::string> list{select_one};
    if (level == level_device) list.insert(list.end(), defaults_.begin(), defaults_.end());
    const auto own = app_.my_database().list_names(level);
    list.insert(list.end(), own.begin(), own.end());
    return list;
}

bool MyDatabase::choose(int level, const std::string& name)
{
    if (level < level_brand || level > level_function) return false;
    const auto list = names(level);
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const std::string& n) { return right_trimmed(n) == right_trimmed(name); });
    if (found == list.end()) return false;
    chosen[at(level - level_brand)] = *found;
    return true;
}

bool MyDatabase::ok()
{
    if (app_.current_ir.name.empty()) {
        app_.ui().editir_status("Invalid IRcode");
        return false;
    }
    const RegisterOutcome outcome = register_ir_code(app_.ui(), app_.my_database(), chosen, app_.current_ir.value());
    if (outcome == RegisterOutcome::registered || outcome == RegisterOutcome::overwritten)
        app_.write_log("registered to My Database " + chosen[0] + "-" + chosen[1] + "-" + chosen[2] + "-" + chosen[3]);
    return outcome != RegisterOutcome::refused && outcome != RegisterOutcome::failed;
}

AddDataBase::AddDataBase(Application& app, int level) : app_(app), level_(level) {}

std::string AddDataBase::caption() const { return "Add New " + mydb_level_name(level_) + " Name"; }

bool AddDataBase::ok()
{
    const std::string name = right_trimmed(Text1.substr(0, mydb_name_bytes));
    if (name.empty()) return true;
    for (const auto& known : MyDatabase(app_).names(level_))
        if (right_trimmed(known) == name) {
            app_.ui().message(title_main, "<" + name + "> already exist", Icon::exclamation);
            return false;
        }
    if (!app_.my_database().add_list_name(level_, name)) return store_failed(app_.ui(), app_.my_database());
    return true;
}

NewIRData::NewIRData(Application& app) : app_(app) { cmdBuildAll(); }

const std::vector<std::string>& NewIRData::names(int level) const { return names_[level - level_brand]; }

int NewIRData::chosen(int level) const { return chosen_[level - level_brand]; }

void NewIRData::fill(int level)
{
    const int i = level - level_brand;
    names_[i] = {select_one};
    nodes_[i] = {0};
    chosen_[i] = 0;
    const int parent = level == level_brand ? 0 : nodes_[i - 1][at(chosen_[i - 1])];
    if (level == level_brand || parent > 0) {
        for (int node : app_.my_database().mydata_children(level, parent)) {
            names_[i].push_back(app_.my_database().mydata_record(node)->name);
            nodes_[i].push_back(node);
        }
    }
    if (level < level_function) fill(level + 1);
}

void NewIRData::choose(int level, int index)
{
    if (level < level_brand || level > level_function) return;
    const int i = level - level_brand;
    if (index < 0 || index >= static_cast<int>(names_[i].size())) index = 0;
    chosen_[i] = index;
    if (level < level_function) fill(level + 1);
}

bool NewIRData::choose_name(int level, const std::string& name)
{
    if (level < level_brand || level > level_function) return false;
    const auto& list = names_[level - level_brand];
    for (std::size_t n = 1; n < list.size(); ++n)
        if (list[n] == right_trimmed(name)) {
            choose(level, static_cast<int>(n));
            return true;
        }
    return false;
}

void NewIRData::cmdClear()
{
    for (int i = 0; i < 4; ++i) chosen_[i] = 0;
    fill(level_brand);
}

void NewIRData::cmdBuildAll() { fill(level_brand); }

bool NewIRData::ok()
{
    const int i = level_function - level_brand;
    const int node = nodes_[i][at(chosen_[i])];
    if (node <= 0) return false;
    const auto record = app_.my_database().code_of_function(node);
    if (!record) return false;
    const IrCodeValue code = app_.my_database().code_of(*record);
    std::string name = code.learned ? "MYDATABASE LEARNING CODE " : "MYDATABASE CODE ";
    for (int level = level_brand; level <= level_function; ++level)
        name += (level == level_brand ? "" : "-") + names_[level - level_brand][at(chosen_[level - level_brand])];
    app_.current_ir.set_value(code, code.learned ? ir_type_mydatabase_learned : ir_type_mydatabase, name);
    return true;
}

}  // namespace tesselo
