#include "FeatureTour.h"

#include <QApplication>
#include <QTest>

// Not by the macro: the screen that the window stands on comes before the application.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" KEST_TOUR_SCREEN);
    QApplication application(argc, argv);
    FeatureTour tour;
    return QTest::qExec(&tour, argc, argv);
}
