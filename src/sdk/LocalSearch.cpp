#include "sdk/LocalSearch.h"

#include "sdk/IKestServicesManager.h"

void LocalSearch::CommandRefHelp(int topic)
{
    if (IKestServicesManager* services = getServicesManagerInterface())
        services->showHelp(topic);
}
