#include "toolcommand.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstdio>

static QList<const ToolCommand*>& registry()
{
    static QList<const ToolCommand*> commands;
    return commands;
}

ToolCommand::ToolCommand(const char* name, const char* synopsis, const char* help, Runner run)
    : name(QString::fromUtf8(name)), synopsis(QString::fromUtf8(synopsis)),
      help(QString::fromUtf8(help)), run(std::move(run))
{
    registry().append(this);
}

// By name, whatever the order in which the commands' files were linked.
const QList<const ToolCommand*>& ToolCommand::all()
{
    QList<const ToolCommand*>& commands = registry();
    std::sort(commands.begin(), commands.end(),
              [](const ToolCommand* a, const ToolCommand* b) { return a->name < b->name; });
    return commands;
}

const ToolCommand* ToolCommand::find(const QString& name)
{
    for (const ToolCommand* command : registry()) {
        if (command->name == name)
            return command;
    }
    return nullptr;
}

void printOut(const QString& text)
{
    std::fputs(text.toUtf8().constData(), stdout);
    std::fflush(stdout);
}

void printError(const QString& text)
{
    std::fputs(text.toUtf8().constData(), stderr);
    std::fflush(stderr);
}

QString plainMessage(const QString& html)
{
    QString text = html;
    text.replace(QRegularExpression(QStringLiteral("<br\\s*/?>")), QStringLiteral("\n"));
    text.remove(QRegularExpression(QStringLiteral("<[^>]*>")));
    return text;
}
