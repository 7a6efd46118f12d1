#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace tesselo {

// What a window program tells of itself on its command line. The help is the
// one source of the program's manual page, which is made from it.
struct ProgramHelp {
    QString name;         // tesselo, tesselo-simulator
    QString version;
    QString description;  // its first line names the program in the manual
    QString argument;     // FILE
    QString argument_help;
    QString argument_syntax;  // [FILE], [FILE...]
    QString epilog;           // sections after the arguments: "Environment:" and its entries
};

// --help and --version answer without a display, before any window: true
// when they did, and the program ends.
bool answer_without_display(int argc, char** argv, const ProgramHelp& help);

// The files named on the command line, parsed as the help describes them
// (a wrong option ends the program with its message).
QStringList program_files(const QCoreApplication& app, const ProgramHelp& help);

}  // namespace tesselo
