// Script operations of IR codes: add-ir, test-ir and mydb, each through the
// Add IR Code dialog's logic and the dialogs it opens.
#include <cstdlib>

#include "app/cli/script_runner.h"
#include "app/cli/script_targets.h"
#include "core/ir/edit_ir.h"
#include "core/ir/ir_data_dialog.h"
#include "core/ir/my_database_forms.h"
#include "core/ir/rc56_edit.h"

namespace tesselo::cli {

namespace {

// The protocol index of an RC word and the fields it takes, in their order
// on the command line: rc5 S C, rc5x S C D, rc6 S C, rc6a U S C.
struct RcSource {
    const char* word;
    int protocol;
    std::vector<RcField> fields;
};

const std::vector<RcSource>& rc_sources()
{
    static const std::vector<RcSource> sources{
        {"rc5", rc_protocol_rc5, {RcField::Text3, RcField::Text1}},
        {"rc5x", rc_protocol_rc5x, {RcField::Text3, RcField::Text1, RcField::Text4}},
        {"rc6", rc_protocol_rc6, {RcField::Text3, RcField::Text1}},
        {"rc6a", rc_protocol_rc6a, {RcField::Text2, RcField::Text3, RcField::Text1}},
    };
    return sources;
}

void set_field(RC56Edit& dialog, RcField field, const std::string& text)
{
    switch (field) {
    case RcField::Text1: dialog.Text1 = text; break;
    case RcField::Text2: dialog.Text2 = text; break;
    case RcField::Text3: dialog.Text3 = text; break;
    case RcField::Text4: dialog.Text4 = text; break;
    }
}

// The words of a source, with a trailing `duration SECONDS` taken off.
struct SourceWords {
    ScriptArgs source;
    std::optional<std::string> duration;
};

SourceWords split_duration(const ScriptArgs& args)
{
    SourceWords w{args, std::nullopt};
    if (args.size() >= 2 && args[args.size() - 2] == "duration") {
        w.duration = args.back();
        w.source.resize(args.size() - 2);
    }
    return w;
}

// Fills the current code from a source, through the dialog that the
// source's button opens.
LineResult take_source(CliContext& ctx, EditIR& dialog, const ScriptArgs& source)
{
    if (source.empty()) return LineResult::bad_line;
    const std::string& kind = source[0];
    for (const auto& rc : rc_sources()) {
        if (kind != rc.word) continue;
        if (source.size() != rc.fields.size() + 1) return LineResult::bad_line;
        RC56Edit edit(ctx.ui, ctx.app.current_ir);
        edit.choose_protocol(rc.protocol);
        for (std::size_t i = 0; i < rc.fields.size(); ++i) set_field(edit, rc.fields[i], source[i + 1]);
        return edit.ok() ? LineResult::done : LineResult::refused;
    }
    if (kind == "library") {
        const int key = source.size() == 3 ? number_in(source[2], 0, 9999) : -1;
        if (key < 0) return LineResult::bad_line;
        IRData library(ctx.app);
        if (!library.choose_codeset_label(source[1]) || key >= static_cast<int>(library.functions().size()))
            return LineResult::bad_line;
        library.choose_function(key);
        return library.ok() ? LineResult::done : LineResult::refused;
    }
    if (kind == "mydb") {
        if (source.size() != 5) return LineResult::bad_line;
        if (!dialog.my_database_available()) return LineResult::refused;
        NewIRData pick(ctx.app);
        for (int level = level_brand; level <= level_function; ++level)
            if (!pick.choose_name(level, source[static_cast<std::size_t>(level - level_brand + 1)]))
                return LineResult::bad_line;
        return pick.ok() ? LineResult::done : LineResult::refused;
    }
    if (kind == "learn" && source.size() == 1) return dialog.learn() ? LineResult::done : LineResult::refused;
    return LineResult::bad_line;
}

// The Duration frame: Minimum chosen and the seconds typed, then the field left.
void set_duration(EditIR& dialog, const std::string& seconds)
{
    dialog.choose_minimum();
    dialog.Label4.clear();
    for (char c : seconds) dialog.key_press(c);
    dialog.leave_duration();
}

LineResult add_ir(CliContext& ctx, const ScriptArgs& args)
{
    const StepKey selected = step_key(ctx);
    const auto& target = selected.target;
    if (!target) return selected.refusal;
    const SourceWords words = split_duration(args);
    EditIR dialog(ctx.app, *target);
    LineResult result = take_source(ctx, dialog, words.source);
    if (result == LineResult::done) {
        if (words.duration) set_duration(dialog, *words.duration);
        if (!dialog.ok()) result = LineResult::refused;
    }
    // A dialog that stays open after a refusal is then cancelled.
    if (result != LineResult::done) dialog.cancel();
    return result;
}

LineResult test_ir(CliContext& ctx, const ScriptArgs& args)
{
    const StepKey selected = step_key(ctx);
    const auto& target = selected.target;
    if (!target) return selected.refusal;
    const SourceWords words = split_duration(args);
    EditIR dialog(ctx.app, *target);
    LineResult result = take_source(ctx, dialog, words.source);
    if (result == LineResult::bad_line) return result;
    if (words.duration) set_duration(dialog, *words.duration);
    const bool sent = dialog.test_start();
    dialog.test_end();
    dialog.cancel();
    return sent && result == LineResult::done ? LineResult::done : LineResult::refused;
}

LineResult mydb(CliContext& ctx, const ScriptArgs& args)
{
    if (args.size() == 5 && args[0] == "register") {
        MyDatabase form(ctx.app);
        for (int level = level_brand; level <= level_function; ++level)
            if (!form.choose(level, args[static_cast<std::size_t>(level - level_brand + 1)])) return LineResult::bad_line;
        return form.ok() ? LineResult::done : LineResult::refused;
    }
    if (args.size() == 3 && args[0] == "add") {
        const int level = mydb_level_of(args[1]);
        if (level == 0) return LineResult::bad_line;
        AddDataBase form(ctx.app, level);
        form.Text1 = args[2];
        return form.ok() ? LineResult::done : LineResult::refused;
    }
    return LineResult::bad_line;
}

}  // namespace

void add_ir_operations(ScriptOperations& ops)
{
    ops["add-ir"] = add_ir;
    ops["test-ir"] = test_ir;
    ops["mydb"] = mydb;
}

}  // namespace tesselo::cli
