#include "app/gradientcommands.h"

#include "app/mainwindow.h"
#include "app/prompts.h"
#include "app/qdrawingoptionsbar.h"
#include "app/toolstate.h"
#include "formats/gradientfile.h"
#include "settings/settings.h"

GradientCommands::GradientCommands(MainWindow& window, ToolState* tools)
    : m_window(window), m_tools(tools)
{
    QString path;
    Settings settings;
    if (!settings.get(QStringLiteral("degrade"), path) || path.isEmpty())
        return;
    const GradientFile::Reading reading = GradientFile::load(path);
    if (reading.ok())
        m_tools->gradient = reading.record;
}

void GradientCommands::showGradientEditor()
{
    const std::optional<GradientRecord> edited =
        Prompts::instance()->gradient(&m_window, QStringLiteral("Editeur de dégradé"),
                                      m_tools->gradient, m_window.primaryColor());
    if (!edited)
        return;
    m_tools->gradient = *edited;
    m_window.drawingBar()->updateGradientPreview();
}
