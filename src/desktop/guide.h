// The user's guide, F1: the chapters of docs/guida, which are part of the program.
#pragma once

class QWidget;

namespace desktop {

// Stands beside the work, not over it; a second call brings the same window to the front.
void showGuide(QWidget* parent);

}  // namespace desktop
