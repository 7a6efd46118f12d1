#include "views/program_command_line.h"

#include <QCommandLineParser>
#include <cstdio>
#include <string>

namespace tesselo {

namespace {

void name_program(const ProgramHelp& help)
{
    QCoreApplication::setApplicationName(help.name);
    QCoreApplication::setApplicationVersion(help.version);
}

void describe(QCommandLineParser& parser, const ProgramHelp& help)
{
    parser.setApplicationDescription(help.description);
    parser.addPositionalArgument(help.argument, help.argument_help, help.argument_syntax);
}

}  // namespace

bool answer_without_display(int argc, char** argv, const ProgramHelp& help)
{
    bool asked = false;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        asked = asked || word == "--help" || word == "-h" || word == "--help-all" || word == "--version" || word == "-v";
    }
    if (!asked) return false;
    QCoreApplication core(argc, argv);
    name_program(help);
    QCommandLineParser parser;
    describe(parser, help);
    parser.addHelpOption();
    const QCommandLineOption version_option = parser.addVersionOption();
    parser.parse(QCoreApplication::arguments());
    // Qt's own options, with ours, as Qt prints them (and ends).
    if (parser.isSet("help-all")) parser.process(QCoreApplication::arguments());
    if (parser.isSet(version_option)) {
        std::printf("%s %s\n", qPrintable(help.name), qPrintable(help.version));
        return true;
    }
    // The usage line names the program, not the path it was started by.
    QString text = parser.helpText();
    text.replace(QCoreApplication::arguments().first(), help.name);
    if (!help.epilog.isEmpty()) text += "\n" + help.epilog;
    std::fputs(qPrintable(text), stdout);
    return true;
}

QStringList program_files(const QCoreApplication& app, const ProgramHelp& help)
{
    name_program(help);
    QCommandLineParser parser;
    describe(parser, help);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(app);
    return parser.positionalArguments();
}

}  // namespace tesselo
