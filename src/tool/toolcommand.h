#pragma once

#include <QStringList>

#include <functional>

// One command of zenkora-tool. Each command lives in its own source file and
// registers itself with a static ToolCommand object:
//   static const ToolCommand command(u"info", u"info FILE", u"...", &runInfo);
// run() receives the arguments after the command's name and returns the exit code:
// 0 success, 1 failure, 2 wrong usage.
class ToolCommand
{
public:
    using Runner = std::function<int(const QStringList& arguments)>;

    ToolCommand(const char* name, const char* synopsis, const char* help, Runner run);

    static const QList<const ToolCommand*>& all();
    static const ToolCommand* find(const QString& name);

    QString name;
    QString synopsis;
    QString help;
    Runner run;
};

// Shared by the commands: writes to the standard streams as UTF-8.
void printOut(const QString& text);
void printError(const QString& text);
// A message of the model (HTML with "<br />") as plain text.
QString plainMessage(const QString& html);
