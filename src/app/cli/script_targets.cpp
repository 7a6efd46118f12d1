#include "app/cli/script_targets.h"

#include <cstdlib>

#include "core/tree/selection.h"

namespace tesselo::cli {

int number_in(const std::string& word, int low, int high)
{
    if (word.empty() || word.size() > 5) return -1;
    for (char c : word)
        if (c < '0' || c > '9') return -1;
    const int n = std::atoi(word.c_str());
    return n >= low && n <= high ? n : -1;
}

std::optional<KeyTarget> page_target(CliContext& ctx)
{
    const Document* doc = ctx.app.active();
    const TreeSelection& s = ctx.app.selection();
    if (!doc || s.slot != doc->slot || (s.image != "tv" && s.image != "hide tv")) return std::nullopt;
    return KeyTarget{doc->slot, s.node_key};
}

std::optional<KeyTarget> key_target(CliContext& ctx)
{
    auto target = page_target(ctx);
    if (!target || ctx.app.key_selection.selected_kind == kind_none) return std::nullopt;
    return target;
}

}  // namespace tesselo::cli
