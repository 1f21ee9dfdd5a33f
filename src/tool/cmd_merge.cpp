// zenkora-tool merge: the tileset merge on the command line.
#include "toolcommand.h"

#include "batch/fusioner.h"

#include <QFileInfo>

#include <unistd.h>

namespace {

int runMerge(const QStringList& arguments)
{
    bool overwrite = false;
    QStringList paths;
    for (const QString& argument : arguments) {
        if (argument == QLatin1String("--overwrite")) {
            overwrite = true;
        } else if (argument.startsWith(QLatin1String("--"))) {
            printError(QStringLiteral("zenkora-tool merge: unknown option ") + argument +
                       QLatin1Char('\n'));
            return 2;
        } else {
            paths.append(argument);
        }
    }
    if (paths.size() < 2) {
        printError(QStringLiteral("zenkora-tool merge: give the file to write and at least one "
                                  "tileset\nSee zenkora-tool merge --help.\n"));
        return 2;
    }
    const QString target = paths.takeFirst();
    if (QFileInfo::exists(target) && !overwrite) {
        printError(QStringLiteral("zenkora-tool merge: ") + target +
                   QStringLiteral(" exists; nothing was written (give --overwrite to replace "
                                  "it)\n"));
        return 1;
    }

    const bool showProgress = isatty(STDERR_FILENO);
    Fusioner fusioner(paths, target, nullptr);
    QObject::connect(&fusioner, &Fusioner::changeProgress, [&](uint value, const QString& info) {
        if (showProgress)
            printError(QStringLiteral("\r\x1b[K%1 % %2").arg(value, 3).arg(info));
    });
    // Nothing else to do meanwhile: the thread body runs here, signals as direct calls.
    fusioner.run();
    if (showProgress)
        printError(QStringLiteral("\r\x1b[K"));
    for (const QString& path : fusioner.failedFiles())
        printError(QStringLiteral("cannot open: ") + path + QLatin1Char('\n'));
    for (const QString& path : fusioner.failedWrites())
        printError(QStringLiteral("cannot write: ") + path + QLatin1Char('\n'));
    return fusioner.failedFiles().isEmpty() && fusioner.failedWrites().isEmpty() ? 0 : 1;
}

const ToolCommand
    command("merge", "merge OUT.png IN... [--overwrite]",
            "  Stacks tilesets one below the other, in the order given, into one PNG 256\n"
            "  pixels wide. Inputs that can't be opened go to stderr (\"cannot open: PATH\"),\n"
            "  are passed over and give exit status 1; so does an OUT.png that can't be\n"
            "  written (\"cannot write: PATH\"). An existing OUT.png is replaced only with\n"
            "  --overwrite.\n",
            &runMerge);

} // namespace
