#pragma once

#include <QString>
#include <QStringList>

// Runs zenkora-tool as a user's script runs it: a separate process without a display.
struct ToolResult
{
    int code = -1; // -1 when the tool did not end normally within the time allowed
    QString out;
    QString err;
};

// fileSizeBlocks, when positive, limits every file the program writes to that many
// blocks of 1024 bytes (a full disk at a chosen byte, as root too): writes past it fail
// instead of killing the program.
ToolResult runProgram(const QString& program, const QStringList& arguments,
                      const QString& workingDirectory = {}, int fileSizeBlocks = 0);
// The same for zenkora-tool.
ToolResult runTool(const QStringList& arguments, const QString& workingDirectory = {},
                   int fileSizeBlocks = 0);
