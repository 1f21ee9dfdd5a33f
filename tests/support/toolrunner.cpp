#include "toolrunner.h"

#include <QProcess>

ToolResult runProgram(const QString& program, const QStringList& arguments,
                      const QString& workingDirectory, int fileSizeBlocks)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(workingDirectory);
    if (fileSizeBlocks > 0) {
        const QString limited =
            QStringLiteral("trap '' XFSZ; ulimit -f %1; exec \"$0\" \"$@\"").arg(fileSizeBlocks);
        process.start(QStringLiteral("bash"),
                      QStringList{QStringLiteral("-c"), limited, program} + arguments);
    } else {
        process.start(program, arguments);
    }
    ToolResult result;
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.code = process.exitCode();
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

ToolResult runTool(const QStringList& arguments, const QString& workingDirectory,
                   int fileSizeBlocks)
{
    return runProgram(QStringLiteral(ZENKORA_TOOL_PATH), arguments, workingDirectory,
                      fileSizeBlocks);
}
