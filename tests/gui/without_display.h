#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace tesselo::testing {

// A program of the build run without a display (no DISPLAY, WAYLAND_DISPLAY
// or QT_QPA_PLATFORM), as --help and --version must answer: its exit status
// (-1 when it did not end within ten seconds) and its standard output.
struct ProgramOutput {
    int exit_code = -1;
    QByteArray out;
};

inline ProgramOutput run_without_display(const QString& program, const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) env.remove(variable);
    process.setProcessEnvironment(env);
    process.start(program, arguments);
    if (!process.waitForFinished(10000)) return {};
    return {process.exitCode(), process.readAllStandardOutput()};
}

}  // namespace tesselo::testing
