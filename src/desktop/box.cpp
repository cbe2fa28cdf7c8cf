#include "desktop/box.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "desktop/icons.h"
#include "desktop/style.h"
#include "desktop/words.h"

namespace desktop {
namespace {

constexpr int kNarrow = 240, kWide = 480;  // of the text, in pixels

const char* captionOf(ui::Answer answer) {
  switch (answer) {
    case ui::Answer::yes:
      return "&Sì";
    case ui::Answer::no:
      return "&No";
    case ui::Answer::cancel:
      return "&Annulla";
    default:
      return "&OK";
  }
}

ui::Answer givenUp(const ui::Box& box) {
  const auto answers = ui::buttonsOf(box.ask);
  for (const ui::Answer answer : {ui::Answer::cancel, ui::Answer::no})
    if (std::find(answers.begin(), answers.end(), answer) != answers.end()) return answer;
  return ui::Answer::ok;
}

Ink inkOf(ui::Icon icon) {
  return icon == ui::Icon::warning ? Ink::warning : icon == ui::Icon::critical ? Ink::critical : Ink::accent;
}

class BoxDialog : public QDialog {
 public:
  BoxDialog(const ui::Box& box, QWidget* parent)
      : QDialog(parent), answer_(givenUp(box)), text_(text(box.text)) {
    setWindowTitle(text(box.title));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 18, 20, 14);
    column->setSpacing(18);
    column->addLayout(words(box));
    column->addLayout(buttons(box));
    column->setSizeConstraint(QLayout::SetFixedSize);
  }
  ui::Answer answer() const { return answer_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::Copy)) return QApplication::clipboard()->setText(text_);
    QDialog::keyPressEvent(event);
  }

 private:
  QLayout* words(const ui::Box& box) {
    auto* line = new QHBoxLayout;
    line->setSpacing(16);
    if (box.icon != ui::Icon::none) {
      auto* picture = new QLabel;
      picture->setPixmap(
          icon(ui::nameOf(box.icon), inkOf(box.icon)).pixmap(QSize(36, 36), devicePixelRatioF()));
      line->addWidget(picture, 0, Qt::AlignTop);
    }
    auto* label = new QLabel(text_);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    const int whole = label->fontMetrics().size(Qt::TextExpandTabs, text_).width() + 8;
    label->setFixedWidth(std::clamp(whole, kNarrow, kWide));
    label->setMinimumHeight(36);
    line->addWidget(label, 1, Qt::AlignVCenter);
    return line;
  }

  QLayout* buttons(const ui::Box& box) {
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addStretch();
    for (const ui::Answer answer : ui::buttonsOf(box.ask)) {
      auto* push = new QPushButton(captionOf(answer));
      const bool main = answer == ui::defaultOf(box);
      push->setProperty(kMainButton, main);
      push->setDefault(main);
      push->setMinimumWidth(84);
      connect(push, &QPushButton::clicked, this, [this, answer] {
        answer_ = answer;
        accept();
      });
      row->addWidget(push);
      if (main) push->setFocus();
    }
    return row;
  }

  ui::Answer answer_;
  QString text_;
};

}  // namespace

ui::Answer showBox(const ui::Box& box, QWidget* parent) {
  BoxDialog dialog(box, parent);
  dialog.exec();
  return dialog.answer();
}

}  // namespace desktop
