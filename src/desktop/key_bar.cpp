#include "desktop/key_bar.h"

#include <QBoxLayout>
#include <QPainter>
#include <QPointer>
#include <QToolButton>
#include <algorithm>
#include <vector>

#include "desktop/form_keys.h"
#include "desktop/form_view.h"
#include "desktop/theme.h"
#include "desktop/words.h"
#include "ui/caption.h"

namespace desktop {
namespace {

// The hint of a field says what its key does: "F5 ricerca facilitata".
QString wordFor(ui::Key key, const ui::Form& form, const ui::Control* control) {
  if (!(control && control->uses(key)) && !form.wordFor(key).empty()) return text(form.wordFor(key));
  const QString hint = control ? text(control->hint) : QString(), name = text(ui::nameOf(key));
  return hint.startsWith(name + " ") ? hint.mid(name.size() + 1) : wordOf(key).toLower();
}

// Something in sight is turned page by page.
bool pages(const ui::Form& form) {
  return std::any_of(form.controls().begin(), form.controls().end(), [&](const ui::Control* control) {
    const auto* grid = dynamic_cast<const ui::Grid*>(control);
    const auto* spin = dynamic_cast<const ui::Spin*>(control);
    return control->visible() && form.shows(*control) &&
           ((grid && grid->pages() > 1) || (spin && spin->pages));
  });
}

const ui::Button* cancelOf(const ui::Form& form) {
  for (const ui::Control* control : form.controls())
    if (const auto* button = dynamic_cast<const ui::Button*>(control))
      if (button->role() == ui::Button::Role::cancel && button->reachable()) return button;
  return nullptr;
}

std::vector<BarKey> keysOf(FormView& view) {
  const ui::Form& form = view.form();
  const ui::Control* control = form.focused();
  std::vector<BarKey> keys;
  const auto add = [&](ui::Key key, const QString& name, const QString& word) {
    keys.push_back({name, word, [at = QPointer<FormView>(&view), key] {
                      if (at) at->user().key(key);
                    }});
  };
  for (int at = static_cast<int>(ui::Key::F2); at <= static_cast<int>(ui::Key::F12); ++at) {
    const auto key = static_cast<ui::Key>(at);
    if ((control && control->uses(key)) || form.uses(key))
      add(key, text(ui::nameOf(key)), wordFor(key, form, control));
  }
  if (dynamic_cast<const ui::Field*>(control)) add(ui::Key::enter, "Invio", "avanti");
  if (pages(form)) {
    add(ui::Key::pageUp, "PagSu", "pagina prima");
    add(ui::Key::pageDown, "PagGiù", "pagina dopo");
  }
  if (const ui::Button* cancel = cancelOf(form))
    add(ui::Key::escape, "Esc", text(ui::plainCaption(cancel->caption())).toLower());
  return keys;
}

// A key as it stands on the keyboard, and beside it what it does.
class KeyCap : public QToolButton {
 public:
  KeyCap(const QString& key, const QString& word) : key_(key), word_(word) {
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(key + " " + word);
    setFixedSize(capWidth() + (word.isEmpty() ? 4 : fontMetrics().horizontalAdvance(word) + 14), 24);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(underMouse() ? tokens().accent : tokens().line);
    painter.setBrush(tokens().title);
    const QRectF cap(0.5, 3.5, capWidth() - 1, 17);
    painter.drawRoundedRect(cap, 3, 3);
    painter.setPen(tokens().titleText);
    painter.drawText(cap, Qt::AlignCenter, key_);
    painter.setPen(underMouse() ? tokens().accent : tokens().soft);
    painter.drawText(rect().adjusted(capWidth() + 6, 0, 0, 0), Qt::AlignVCenter, word_);
  }

 private:
  int capWidth() const { return fontMetrics().horizontalAdvance(key_) + 12; }
  QString key_, word_;
};

}  // namespace

KeyBar::KeyBar(QWidget* parent) : QWidget(parent), line_(new QHBoxLayout(this)) {
  line_->setContentsMargins(8, 3, 8, 3);
  line_->setSpacing(6);
  line_->addStretch();
  setFixedHeight(30);
}

void KeyBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), tokens().surface);
  painter.fillRect(0, 0, width(), 1, tokens().line);
}

void KeyBar::clear() {
  while (line_->count() > 1) {
    QLayoutItem* item = line_->takeAt(0);
    if (QWidget* key = item->widget()) {
      key->hide();
      key->deleteLater();  // it may be the one that was pressed
    }
    delete item;
  }
}

void KeyBar::add(const QString& key, const QString& word, std::function<void()> press) {
  auto* button = new KeyCap(key, word);
  connect(button, &QToolButton::clicked, this, std::move(press));
  line_->insertWidget(line_->count() - 1, button);
}

void KeyBar::showKeysOf(FormView* view) { show(view, view ? keysOf(*view) : std::vector<BarKey>()); }

void KeyBar::show(const void* owner, std::vector<BarKey> keys) {
  QString now = QString::number(reinterpret_cast<quintptr>(owner));
  for (const BarKey& key : keys) now += key.name + key.word;
  if (now == shown_) return;
  shown_ = now;
  clear();
  add("F1", "guida", [this] {
    if (onHelp) onHelp();
  });
  for (BarKey& key : keys) add(key.name, key.word, std::move(key.press));
}

}  // namespace desktop
