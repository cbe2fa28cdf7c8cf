// The look of the program: one sheet of colour tokens, light or dark, which the style and every widget of
// our own paint with.
#pragma once

#include <QColor>

class QApplication;

namespace desktop {

struct Tokens {
  QColor window;      // the ground of a form
  QColor surface;     // bars, groups, menus
  QColor field;       // where one writes
  QColor text;        // what one reads
  QColor soft;        // captions, hints
  QColor line;        // borders
  QColor accent;      // what is chosen, what acts
  QColor accentText;  // on the accent
  QColor focus;       // the ground of the field that has the focus
  QColor title;       // heads of tables, inactive title bars
  QColor titleText;   // on them
  QColor disabled;    // the ground of what cannot be written
  QColor ground;      // behind the inner windows
  QColor warning;
  QColor critical;
};

const Tokens& tokens();  // of the theme in use
bool isDark();

// Installs the style, the fonts of the screens and the palette. May be called again to change the theme while
// windows stand open.
void applyTheme(QApplication& app, bool dark);

}  // namespace desktop
