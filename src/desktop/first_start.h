// The first start of an installation: what one may begin with.
#pragma once

#include <QString>

namespace desktop {

// Asks, where no program has worked in `archives` yet, whether a demonstration company be made there, and has
// `demoProgram` (tarvex-demo) make it while a window shows how far it is. Returns when the session may start,
// whatever was answered; asks nothing where that program is missing.
void welcome(const QString& archives, const QString& demoProgram);

}  // namespace desktop
