#pragma once

#include <functional>
#include <istream>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/cli/cli_context.h"

namespace tesselo::cli {

// The result of one script line.
enum class LineResult { done, refused, bad_line };

using ScriptArgs = std::vector<std::string>;
using ScriptOperation = std::function<LineResult(CliContext&, const ScriptArgs&)>;
using ScriptOperations = std::map<std::string, ScriptOperation>;

// Splits a line into blank-separated words; a word in double quotes may hold
// blanks. A '#' outside quotes starts a comment. Nothing when a quote is left open.
std::optional<ScriptArgs> split_script_line(const std::string& line);

// Every script operation that the command line knows.
const ScriptOperations& script_operations();

// Each family of operations adds itself here.
void add_document_operations(ScriptOperations& ops);
void add_tree_operations(ScriptOperations& ops);
void add_step_operations(ScriptOperations& ops);
void add_key_operations(ScriptOperations& ops);
void add_label_operations(ScriptOperations& ops);
void add_link_operations(ScriptOperations& ops);
void add_ir_operations(ScriptOperations& ops);

// Replays a script: 0 when every line ran, 2 when a line cannot be parsed or
// names something that does not exist, 3 when a question found no answer.
int run_script(CliContext& ctx, std::istream& in);

}  // namespace tesselo::cli
