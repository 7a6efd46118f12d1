#include "app/cli/script_targets.h"

#include <cstdlib>

#include "core/keys/hardkey_pictures.h"
#include "core/keys/key_locator.h"
#include "core/keys/properties_content.h"
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

int key_picture(const std::vector<std::string>& words, std::size_t from)
{
    const std::size_t n = words.size() > from ? words.size() - from : 0;
    if (n < 2) return -1;
    const std::string& kind = words[from];
    if (kind == "soft" && (n == 2 || (n == 3 && words[from + 2] == "left"))) {
        const int row = number_in(words[from + 1], 0, 5);
        return row < 0 ? -1 : first_side_button + row * 2 + (n == 3 ? 1 : 0);
    }
    if (kind == "hard" && n == 2) return number_in(words[from + 1], 0, key_pictures - 1);
    return -1;
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

LineResult greyed(CliContext& ctx, const std::string& why)
{
    ctx.greyed = why;
    return LineResult::bad_line;
}

StepKey step_key(CliContext& ctx)
{
    const auto target = key_target(ctx);
    if (!target) return {};
    const Configuration& config = ctx.app.config(target->slot);
    const auto place = locate_key(config, target->page_key, ctx.app.key_selection);
    if (!place) return {};
    switch (steps_greyed(config, *place)) {
    case StepsGreyed::no: return {target};
    case StepsGreyed::punched:
        return {std::nullopt, greyed(ctx, "the key is punched through from another device, whose steps it runs")};
    case StepsGreyed::linked_right:
        return {std::nullopt, greyed(ctx, "the left button is linked to the right side button, whose key it runs")};
    case StepsGreyed::no_key: return {std::nullopt, greyed(ctx, "an empty row of a HOME page is no key")};
    }
    return {};
}

}  // namespace tesselo::cli
