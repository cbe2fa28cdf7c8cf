// "Informazioni su ...".
#pragma once

class QWidget;

namespace desktop {

void showAbout(QWidget* parent);

}  // namespace desktop
