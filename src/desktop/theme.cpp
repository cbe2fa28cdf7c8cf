#include "desktop/theme.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QPalette>

#include "desktop/style.h"

namespace desktop {
namespace {

const Tokens kLight = {.window = "#eef1f5",
                       .surface = "#ffffff",
                       .field = "#ffffff",
                       .text = "#1b2530",
                       .soft = "#55626f",
                       .line = "#c6ced8",
                       .accent = "#1b5e8c",
                       .accentText = "#ffffff",
                       .focus = "#fff6d6",
                       .title = "#dfe6ee",
                       .titleText = "#45525f",
                       .disabled = "#e8ecf1",
                       .ground = "#d5dbe2",
                       .warning = "#b86e00",
                       .critical = "#b3261e"};

const Tokens kDark = {.window = "#1c222a",
                      .surface = "#252c36",
                      .field = "#1a2028",
                      .text = "#e6ebf1",
                      .soft = "#a0adbb",
                      .line = "#3d4855",
                      .accent = "#5aa3d6",
                      .accentText = "#0c151d",
                      .focus = "#3a3620",
                      .title = "#2f3945",
                      .titleText = "#b4c0cc",
                      .disabled = "#2a313b",
                      .ground = "#14191f",
                      .warning = "#e8a33d",
                      .critical = "#ef7a72"};

const Tokens* inUse = &kLight;

void setFont(QApplication& app) {
  QFont font(QStringList{"Open Sans", "Noto Sans", "Liberation Sans", "DejaVu Sans"});
  font.setPointSizeF(9.5);
  app.setFont(font);
}

QPalette paletteOf(const Tokens& from) {
  QPalette palette(from.text, from.surface, from.surface, from.line, from.line, from.text, from.text,
                   from.field, from.window);
  palette.setColor(QPalette::Light, from.surface);
  palette.setColor(QPalette::Midlight, from.title);
  palette.setColor(QPalette::Shadow, from.line);
  palette.setColor(QPalette::AlternateBase, from.window);
  palette.setColor(QPalette::Highlight, from.accent);
  palette.setColor(QPalette::HighlightedText, from.accentText);
  palette.setColor(QPalette::Link, from.accent);
  palette.setColor(QPalette::LinkVisited, from.accent);
  palette.setColor(QPalette::ToolTipBase, from.surface);
  palette.setColor(QPalette::ToolTipText, from.text);
  palette.setColor(QPalette::PlaceholderText, from.soft);
  for (const auto role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
    palette.setColor(QPalette::Disabled, role, from.soft);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, from.title);
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, from.soft);
  return palette;
}

}  // namespace

const Tokens& tokens() { return *inUse; }
bool isDark() { return inUse == &kDark; }

void applyTheme(QApplication& app, bool dark) {
  inUse = dark ? &kDark : &kLight;
  if (!dynamic_cast<Style*>(app.style())) {
    app.setStyle(new Style);
    setFont(app);
  }
  app.setPalette(paletteOf(*inUse));
}

}  // namespace desktop
