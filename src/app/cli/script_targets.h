#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/cli/cli_context.h"
#include "app/cli/script_runner.h"
#include "core/keys/step_commands.h"

namespace tesselo::cli {

// A whole number from `low` to `high` written in digits, or -1.
int number_in(const std::string& word, int low, int high);

// The picture that `soft ROW [left]` or `hard PICTURE` names, from word
// `from` of `words` to their end; -1 when the words name none.
int key_picture(const std::vector<std::string>& words, std::size_t from);

// The key target of the active document: its page is the selected page node.
std::optional<KeyTarget> page_target(CliContext& ctx);
// A key operation needs a selected page and a selected key.
std::optional<KeyTarget> key_target(CliContext& ctx);

// What the editor greys, the command line refuses: the line ends the script
// with status 2 and `why` beside it, and nothing has changed.
LineResult greyed(CliContext& ctx, const std::string& why);
// The selected key for an operation of the Action tab's step buttons; when
// the editor greys them for it, the line is refused as greyed.
struct StepKey {
    std::optional<KeyTarget> target;
    LineResult refusal = LineResult::bad_line;
};
StepKey step_key(CliContext& ctx);

}  // namespace tesselo::cli
