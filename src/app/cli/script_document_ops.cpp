#include <cstdlib>

#include "app/cli/script_runner.h"
#include "core/document/lifecycle.h"
#include "core/document/restore_default.h"
#include "core/tree/merge_configuration.h"

namespace tesselo::cli {

namespace {

LineResult refused_unless(bool done) { return done ? LineResult::done : LineResult::refused; }

bool is_slot_number(const std::string& word)
{
    return word.size() == 1 && word[0] >= '0' && word[0] <= '9';
}

}  // namespace

void add_document_operations(ScriptOperations& ops)
{
    ops["new"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty()) return LineResult::bad_line;
        return refused_unless(muNew(ctx.app) >= 0);
    };
    ops["save"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || !ctx.app.active()) return LineResult::bad_line;
        return refused_unless(muSave(ctx.app));
    };
    ops["save-as"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.size() != 1 || !ctx.app.active()) return LineResult::bad_line;
        ctx.ui.queue_answer_first("file:" + args[0]);
        const bool saved = muSaveas(ctx.app);
        return refused_unless(saved);
    };
    ops["close"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || !ctx.app.active()) return LineResult::bad_line;
        return refused_unless(close_document(ctx.app, ctx.app.active_document()));
    };
    ops["merge"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.size() != 1 || !ctx.app.active()) return LineResult::bad_line;
        ctx.ui.queue_answer_first("file:" + args[0]);
        return refused_unless(muMerge(ctx.app) >= 0);
    };
    ops["restore"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || !ctx.app.active()) return LineResult::bad_line;
        return refused_unless(muRestore(ctx.app));
    };
    ops["activate"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.size() != 1 || !is_slot_number(args[0])) return LineResult::bad_line;
        const int document = ctx.app.document_of_slot(std::atoi(args[0].c_str()));
        if (document < 0) return LineResult::bad_line;
        ctx.app.activate(document);
        return LineResult::done;
    };
    ops["answer"] = [](CliContext& ctx, const ScriptArgs& args) {
        for (const auto& word : args) {
            static const char* known[] = {"yes", "no", "cancel", "ok", "continue", "giveup"};
            bool ok = word.rfind("file:", 0) == 0;
            for (const char* k : known) ok = ok || word == k;
            if (!ok) return LineResult::bad_line;
        }
        for (const auto& word : args) ctx.ui.queue_answer(word);
        return LineResult::done;
    };
}

}  // namespace tesselo::cli
