#include "desktop/memo_edit.h"

#include <QBoxLayout>
#include <QFontComboBox>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextDocument>
#include <QToolButton>
#include <algorithm>
#include <cmath>

#include "desktop/icons.h"
#include "desktop/words.h"

namespace desktop {
namespace {

// The sizes of the font tag, 1 to 7, in points; 3 is that of the text around it.
constexpr double kSizes[] = {7.5, 10, 12, 13.5, 18, 24, 36};
constexpr int kUsual = 3;

int sizeNumber(double points) {
  int nearest = kUsual;
  for (int i = 0; i < 7; ++i)
    if (std::abs(kSizes[i] - points) < std::abs(kSizes[nearest - 1] - points)) nearest = i + 1;
  return nearest;
}

QString fontTag(const QTextCharFormat& format) {
  QString tag;
  const QStringList families = format.fontFamilies().toStringList();
  if (!families.isEmpty()) tag += QString(" face=\"%1\"").arg(families.first().toHtmlEscaped());
  if (format.hasProperty(QTextFormat::FontSizeAdjustment))
    tag += QString(" size=\"%1\"").arg(kUsual + format.intProperty(QTextFormat::FontSizeAdjustment));
  else if (format.fontPointSize() > 0)
    tag += QString(" size=\"%1\"").arg(sizeNumber(format.fontPointSize()));
  if (format.foreground().style() != Qt::NoBrush)
    tag += QString(" color=\"%1\"").arg(format.foreground().color().name());
  return tag;
}

QString fragmentHtml(const QTextFragment& fragment) {
  const QTextCharFormat format = fragment.charFormat();
  QString words = fragment.text().toHtmlEscaped();
  words.replace(QChar::LineSeparator, QLatin1String("<br>"));
  if (format.fontUnderline()) words = "<u>" + words + "</u>";
  if (format.fontItalic()) words = "<i>" + words + "</i>";
  if (format.fontWeight() > QFont::Medium) words = "<b>" + words + "</b>";
  const QString tag = fontTag(format);
  return tag.isEmpty() ? words : "<font" + tag + ">" + words + "</font>";
}

}  // namespace

std::string htmlOf(const QTextDocument& document) {
  QString html;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (block != document.begin()) html += "<br>";
    for (auto at = block.begin(); !at.atEnd(); ++at) html += fragmentHtml(at.fragment());
  }
  return utf8(html);
}

MemoEdit::MemoEdit(ui::Memo& memo, ui::User& user, QWidget* parent)
    : QWidget(parent), memo_(memo), user_(user), editor_(new QTextEdit(this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  if (memo.look() == ui::Memo::Look::rich && !memo.readOnly()) column->addWidget(makeBar());
  column->addWidget(editor_, 1);
  editor_->setAcceptRichText(memo.look() == ui::Memo::Look::rich);
  editor_->setReadOnly(memo.readOnly());
  editor_->setTabChangesFocus(true);
  editor_->setMinimumHeight(memo.lines() * fontMetrics().lineSpacing() + 12);
  editor_->setMinimumWidth(280);
  editor_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);  // as many lines as the memo asks for
  connect(editor_, &QTextEdit::textChanged, this, [this] { push(); });
}

QWidget* MemoEdit::makeBar() {
  auto* bar = new QWidget;
  auto* line = new QHBoxLayout(bar);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(2);
  auto* family = new QFontComboBox;
  family->setFocusPolicy(Qt::ClickFocus);
  family->setMaximumWidth(220);
  family->setToolTip("Carattere");
  connect(family, &QFontComboBox::currentFontChanged, this, [this](const QFont& font) {
    editor_->setFontFamily(font.family());
    editor_->setFocus();
  });
  line->addWidget(family);
  const auto add = [&](const char* name, const char* tip, QKeySequence::StandardKey keys, auto apply) {
    auto* button = new QToolButton;
    button->setIcon(icon(name, Ink::text));
    button->setToolTip(tip);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setShortcut(keys);
    connect(button, &QToolButton::clicked, this, apply);
    line->addWidget(button);
    return button;
  };
  auto* bold = add("bold", "Grassetto", QKeySequence::Bold,
                   [this](bool on) { editor_->setFontWeight(on ? QFont::Bold : QFont::Normal); });
  auto* italic =
      add("italic", "Corsivo", QKeySequence::Italic, [this](bool on) { editor_->setFontItalic(on); });
  auto* under = add("underline", "Sottolineato", QKeySequence::Underline,
                    [this](bool on) { editor_->setFontUnderline(on); });
  line->addStretch();
  connect(editor_, &QTextEdit::currentCharFormatChanged, bar, [=](const QTextCharFormat& format) {
    bold->setChecked(format.fontWeight() > QFont::Medium);
    italic->setChecked(format.fontItalic());
    under->setChecked(format.fontUnderline());
  });
  return bar;
}

std::string MemoEdit::entered() const {
  return memo_.look() == ui::Memo::Look::rich ? htmlOf(*editor_->document()) : utf8(editor_->toPlainText());
}

void MemoEdit::pull() {
  if (pulling_) return;
  const QScopedValueRollback guard(pulling_, true);
  const int cursor = editor_->textCursor().position();
  if (memo_.look() == ui::Memo::Look::rich)
    editor_->setHtml(text(memo_.text()));
  else
    editor_->setPlainText(text(memo_.text()));
  QTextCursor back = editor_->textCursor();
  back.setPosition(std::min(cursor, editor_->document()->characterCount() - 1));
  editor_->setTextCursor(back);
}

// What goes beyond the limit of the memo is taken back from the widget.
void MemoEdit::push() {
  if (pulling_) return;
  {
    const QScopedValueRollback guard(pulling_, true);
    user_.edited(memo_, entered());
  }
  if (utf8(editor_->toPlainText()) != memo_.plainText()) pull();
}

}  // namespace desktop
