// Script operations of a key's label and switches and of a device's
// settings: label, glyph, align, punch, sleep, link-right, device, blaster,
// channel and group.
#include "app/cli/script_runner.h"
#include "app/cli/script_targets.h"
#include "core/keys/char_pic_list.h"
#include "core/keys/device_settings.h"
#include "core/keys/ir_step_names.h"
#include "core/keys/key_behaviours.h"
#include "core/keys/key_locator.h"
#include "core/keys/label_field.h"
#include "core/keys/properties_content.h"
#include "core/tree/selection.h"

namespace tesselo::cli {

namespace {

// The character codes of a UTF-8 text; "\b" is a backspace.
std::vector<int> typed_codes(const std::string& text)
{
    std::vector<int> codes;
    for (std::size_t i = 0; i < text.size();) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c == '\\' && i + 1 < text.size() && text[i + 1] == 'b') {
            codes.push_back(backspace_code);
            i += 2;
        } else if (c >= 0xC0 && c < 0xE0 && i + 1 < text.size()) {
            codes.push_back(((c & 0x1F) << 6) | (static_cast<unsigned char>(text[i + 1]) & 0x3F));
            i += 2;
        } else {
            // Longer sequences name characters beyond any glyph's tag.
            int length = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : 1;
            codes.push_back(length == 1 ? c : 0x10000);
            i += static_cast<std::size_t>(length);
        }
    }
    return codes;
}

std::optional<bool> on_off(const ScriptArgs& args)
{
    if (args.size() != 1) return std::nullopt;
    if (args[0] == "on") return true;
    if (args[0] == "off") return false;
    return std::nullopt;
}

// The Label field of the selection, loaded as a selection loads it.
template <typename Edit>
LineResult with_label(CliContext& ctx, Edit edit)
{
    const auto target = label_target(ctx.app);
    if (!target) return LineResult::bad_line;
    LabelField field;
    field.load(ctx.app.config(target->slot), *target);
    edit(*target, field);
    return LineResult::done;
}

// The key's switches as the Action tab shows them: nothing when the selection
// is no key.
std::optional<std::pair<KeyTarget, ActionPanel>> key_switches(CliContext& ctx)
{
    const auto target = selected_key_target(ctx.app);
    if (!target) return std::nullopt;
    const auto content = properties_content(ctx.app, LibraryStepNames(ctx.app.home(), &ctx.app.my_database()));
    if (content.shows != PropertiesContent::Shows::softkey && content.shows != PropertiesContent::Shows::hardkey)
        return std::nullopt;
    return std::make_pair(*target, content.action);
}

// A device's settings need a device (or HOME, for the blaster alone).
bool has_rf_frame(CliContext& ctx)
{
    const auto device = settings_device(ctx.app);
    return device && *device != 0;
}

LineResult done_or_refused(bool changed) { return changed ? LineResult::done : LineResult::refused; }

}  // namespace

void add_label_operations(ScriptOperations& ops)
{
    ops["label"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.size() != 1) return LineResult::bad_line;
        return with_label(ctx, [&](const LabelTarget& target, LabelField& field) {
            for (int code : typed_codes(args[0])) Text1_KeyPress(ctx.app, target, field, code);
        });
    };
    ops["glyph"] = [](CliContext& ctx, const ScriptArgs& args) {
        const int glyph = args.size() == 1 ? number_in(args[0], 0, char_pic_count) : -1;
        if (glyph < 0) return LineResult::bad_line;
        return with_label(ctx, [&](const LabelTarget& target, LabelField& field) {
            Command9_Click(ctx.app, target, field, glyph);
        });
    };
    ops["align"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.size() != 1) return LineResult::bad_line;
        const int alignment = args[0] == "left" ? align_left : args[0] == "center" ? align_centre
                              : args[0] == "right" ? align_right : -1;
        const auto target = label_target(ctx.app);
        if (alignment < 0 || !target || target->kind == LabelTarget::Kind::hardkey) return LineResult::bad_line;
        align_label(ctx.app, *target, alignment);
        return LineResult::done;
    };
    ops["punch"] = [](CliContext& ctx, const ScriptArgs& args) {
        const auto on = on_off(args);
        const auto key = key_switches(ctx);
        if (!on || !key || !key->second.check1_shown) return LineResult::bad_line;
        if (*on == key->second.check1) return LineResult::refused;
        Check1_Click(ctx.app, key->first, *on);
        return LineResult::done;
    };
    ops["sleep"] = [](CliContext& ctx, const ScriptArgs& args) {
        const auto on = on_off(args);
        const auto key = key_switches(ctx);
        if (!on || !key) return LineResult::bad_line;
        if (!key->second.check2_enabled || *on == key->second.check2) return LineResult::refused;
        return done_or_refused(Check2_Click(ctx.app, key->first, *on));
    };
    ops["link-right"] = [](CliContext& ctx, const ScriptArgs& args) {
        const auto on = on_off(args);
        const auto key = key_switches(ctx);
        if (!on || !key || !key->second.check3_shown) return LineResult::bad_line;
        if (!key->second.check3_enabled) return greyed(ctx, "the title row gets no left key of its own");
        if (*on == key->second.check3) return LineResult::refused;
        return done_or_refused(Check3_Click(ctx.app, key->first, *on));
    };
    ops["device"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.size() != 1 || (args[0] != "ir" && args[0] != "rf") || !has_rf_frame(ctx)) return LineResult::bad_line;
        IRRF_Click(ctx.app, args[0] == "rf" ? option_rf : option_ir);
        return LineResult::done;
    };
    ops["blaster"] = [](CliContext& ctx, const ScriptArgs& args) {
        const auto on = on_off(args);
        if (!on || !settings_device(ctx.app)) return LineResult::bad_line;
        Option1_Click(ctx.app, *on);
        return LineResult::done;
    };
    ops["channel"] = [](CliContext& ctx, const ScriptArgs& args) {
        const int channel = args.size() == 1 ? number_in(args[0], 1, 4) : -1;
        if (channel < 0 || !has_rf_frame(ctx)) return LineResult::bad_line;
        Combo1_Click(ctx.app, channel);
        return LineResult::done;
    };
    ops["group"] = [](CliContext& ctx, const ScriptArgs& args) {
        const int group = args.size() == 1 ? number_in(args[0], 1, 2) : -1;
        if (group < 0 || !has_rf_frame(ctx)) return LineResult::bad_line;
        Combo2_Click(ctx.app, group);
        return LineResult::done;
    };
}

}  // namespace tesselo::cli
