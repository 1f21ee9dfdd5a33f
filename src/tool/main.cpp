// zenkora-tool: Zenkora's command line, for scripts and asset pipelines. It works on
// the model alone and needs no display.
#include "toolcommand.h"

#include <QCoreApplication>

static QString usage()
{
    QString text = QStringLiteral("Usage: zenkora-tool COMMAND [ARGUMENTS...]\n\nCommands:\n");
    for (const ToolCommand* command : ToolCommand::all())
        text += QStringLiteral("  ") + command->synopsis + QLatin1Char('\n');
    text += QStringLiteral("\nzenkora-tool --help, or zenkora-tool COMMAND --help, tells more.\n");
    return text;
}

static QString fullHelp()
{
    QString text = usage();
    for (const ToolCommand* command : ToolCommand::all())
        text += QLatin1Char('\n') + command->synopsis + QLatin1Char('\n') + command->help;
    return text;
}

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QStringList arguments = app.arguments().mid(1);
    if (arguments.isEmpty()) {
        printError(usage());
        return 2;
    }
    const QString name = arguments.takeFirst();
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        printOut(fullHelp());
        return 0;
    }
    const ToolCommand* command = ToolCommand::find(name);
    if (!command) {
        printError(QStringLiteral("zenkora-tool: unknown command \"%1\"\n\n").arg(name) + usage());
        return 2;
    }
    if (arguments.contains(QLatin1String("--help"))) {
        printOut(command->synopsis + QLatin1Char('\n') + command->help);
        return 0;
    }
    return command->run(arguments);
}
