#include "app/cli/script_runner.h"

namespace tesselo::cli {

std::optional<ScriptArgs> split_script_line(const std::string& line)
{
    ScriptArgs words;
    std::size_t i = 0;
    while (i < line.size()) {
        const char c = line[i];
        if (c == ' ' || c == '\t' || c == '\r') {
            ++i;
        } else if (c == '#') {
            break;
        } else if (c == '"') {
            std::string word;
            ++i;
            bool closed = false;
            while (i < line.size()) {
                if (line[i] == '\\' && i + 1 < line.size() && (line[i + 1] == '"' || line[i + 1] == '\\')) {
                    word += line[i + 1];
                    i += 2;
                } else if (line[i] == '"') {
                    closed = true;
                    ++i;
                    break;
                } else {
                    word += line[i++];
                }
            }
            if (!closed) return std::nullopt;
            words.push_back(word);
        } else {
            std::string word;
            while (i < line.size() && line[i] != ' ' && line[i] != '\t' && line[i] != '\r') word += line[i++];
            words.push_back(word);
        }
    }
    return words;
}

const ScriptOperations& script_operations()
{
    static const ScriptOperations ops = [] {
        ScriptOperations all;
        add_document_operations(all);
        add_tree_operations(all);
        add_step_operations(all);
        add_key_operations(all);
        add_label_operations(all);
        add_link_operations(all);
        add_ir_operations(all);
        return all;
    }();
    return ops;
}

int run_script(CliContext& ctx, std::istream& in)
{
    const auto& ops = script_operations();
    std::string line;
    int number = 0;
    while (std::getline(in, line)) {
        ++number;
        const auto words = split_script_line(line);
        if (!words) {
            std::cerr << "line " << number << ": an unclosed quote\n";
            return exit_usage;
        }
        if (words->empty()) continue;
        const auto op = ops.find(words->front());
        if (op == ops.end()) {
            std::cerr << "line " << number << ": unknown operation '" << words->front() << "'\n";
            return exit_usage;
        }
        const ScriptArgs args(words->begin() + 1, words->end());
        const LineResult result = op->second(ctx, args);
        if (ctx.ui.unanswered()) {
            std::cerr << "line " << number << ": a question found no queued answer\n";
            return exit_unanswered;
        }
        if (result == LineResult::bad_line) {
            std::cerr << "line " << number << ": cannot run '" << line << "'";
            if (!ctx.greyed.empty()) std::cerr << ": " << ctx.greyed;
            std::cerr << "\n";
            return exit_usage;
        }
        ctx.greyed.clear();
    }
    return exit_done;
}

}  // namespace tesselo::cli
