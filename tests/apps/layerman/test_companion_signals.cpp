#include "CompanionFixture.h"
