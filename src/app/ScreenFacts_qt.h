#pragma once

#include "app/StartUpSequence.h"

namespace vellumar {

// What the start-up needs to know about this desktop: the primary screen's logical vertical
// pixels per inch and the installed font families.
ScreenFacts ReadScreenFacts();

} // namespace vellumar
