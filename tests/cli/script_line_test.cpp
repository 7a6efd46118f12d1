#include <gtest/gtest.h>

#include "app/cli/script_runner.h"
#include "core/document/scripted_ui.h"

namespace tesselo {
namespace {

using cli::split_script_line;

TEST(ScriptLine, WordsQuotesAndComments)
{
    EXPECT_EQ(*split_script_line("popup \"Add Device\"  # the menu"), (cli::ScriptArgs{"popup", "Add Device"}));
    EXPECT_EQ(*split_script_line("   "), cli::ScriptArgs{});
    EXPECT_EQ(*split_script_line("label \"say \\\"hi\\\"\""), (cli::ScriptArgs{"label", "say \"hi\""}));
    EXPECT_EQ(*split_script_line("key soft 2 left\r"), (cli::ScriptArgs{"key", "soft", "2", "left"}));
    EXPECT_FALSE(split_script_line("open \"unclosed"));
}

TEST(Quoted, EscapesBackslashQuoteAndLineEnds)
{
    EXPECT_EQ(quoted("a\\b\"c\rd\ne"), "\"a\\\\b\\\"c\\rd\\ne\"");
}

}  // namespace
}  // namespace tesselo
