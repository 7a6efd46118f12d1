#pragma once

// Script lines run inside the test, through the command line's own
// operations on an application of its own, so that a test can look at the
// tables between two lines.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "app/cli/script_runner.h"
#include "support/test_app.h"

namespace tesselo::testing {

struct InProcessScript {
    TempFolder home;
    std::ostringstream out;
    cli::CliContext ctx{home.path(), out};

    // Runs one line; an unknown operation or an unclosed quote is a bad line.
    cli::LineResult run(const std::string& line)
    {
        const auto words = cli::split_script_line(line);
        if (!words || words->empty()) return cli::LineResult::bad_line;
        const auto& ops = cli::script_operations();
        const auto op = ops.find(words->front());
        if (op == ops.end()) return cli::LineResult::bad_line;
        return op->second(ctx, cli::ScriptArgs(words->begin() + 1, words->end()));
    }
    // Runs each line; every one must run.
    void run_all(const std::vector<std::string>& lines)
    {
        for (const auto& line : lines) ASSERT_EQ(run(line), cli::LineResult::done) << line;
    }
    int active_slot()
    {
        const int doc = ctx.app.active_document();
        return doc < 0 ? -1 : ctx.app.documents()[static_cast<std::size_t>(doc)].slot;
    }
    Configuration& config() { return ctx.app.config(active_slot()); }
};

}  // namespace tesselo::testing
