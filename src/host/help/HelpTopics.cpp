#include "host/help/HelpTopics.h"

namespace {
struct TopicPage
{
    int topic;
    const char* page;
};

constexpr TopicPage kPages[] = {
    {help_topics::kContents, "index.md"},
    {help_topics::kPropertyFilter, "property-filters.md"},
    {help_topics::kLayerStates, "layer-states.md"},
    {help_topics::kPalette, "palette.md"},
    {help_topics::kLayerSettings, "layer-settings.md"},
    {help_topics::kCommandLine, "command-line.md"},
    {help_topics::kCanvas, "canvas.md"},
    {help_topics::kFiles, "files.md"},
    {help_topics::kPanes, "panes.md"},
    {help_topics::kColour, "colors.md"},
    {help_topics::kLinetype, "linetypes.md"},
    {help_topics::kLineweight, "lineweights.md"},
    {help_topics::kPlotStyle, "plot-styles.md"},
};
} // namespace

namespace help_topics {

QString page(int topic)
{
    for (const TopicPage& known : kPages) {
        if (known.topic == topic)
            return QLatin1String(known.page);
    }
    return QLatin1String(kPages[0].page);
}

QList<int> all()
{
    QList<int> topics;
    for (const TopicPage& known : kPages)
        topics << known.topic;
    return topics;
}

} // namespace help_topics
