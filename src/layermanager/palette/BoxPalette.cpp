#include "layermanager/palette/BoxPalette.h"

QPalette boxPalette(const QPalette& ground)
{
    QPalette colours = ground;
    if (ground.color(QPalette::Base).lightness() < ground.color(QPalette::Window).lightness())
        colours.setColor(QPalette::Base, ground.color(QPalette::Light));
    return colours;
}
