#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

namespace tesselo {
class Application;
}

namespace tesselo::cli {

// Every table of the document `document` as one JSON object, in the
// command line's contract: tables whole, in their fixed capacities, free rows
// included; IR words as unsigned 16-bit patterns.
nlohmann::ordered_json document_json(Application& app, int document);

// The tree of document slot `slot`, one node a line:
// INDEX<TAB>PARENT-INDEX<TAB>KEY<TAB>TEXT<TAB>IMAGE.
void print_tree(Application& app, int slot, std::ostream& out);

}  // namespace tesselo::cli
