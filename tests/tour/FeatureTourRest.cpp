#include "FeatureTour.h"
void FeatureTour::savesALayerStateAndRestoresIt() { }
void FeatureTour::editsALayerState() { }
void FeatureTour::givesAViewportColorsOfItsOwn() { }
void FeatureTour::handsAStateToAnotherDrawing() { }
void FeatureTour::undoesEverythingAndRedoesIt() { }
void FeatureTour::savesAndFindsEverythingAgain() { }
