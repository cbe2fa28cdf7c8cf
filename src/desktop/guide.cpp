#include "desktop/guide.h"

#include <QBoxLayout>
#include <QFile>
#include <QKeyEvent>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

#include "desktop/theme.h"

namespace desktop {
namespace {

void quiet(QTextTable& table) {
  QTextTableFormat format = table.format();
  format.setBorder(1);
  format.setBorderCollapse(true);
  format.setBorderBrush(tokens().line);
  format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  format.setCellPadding(6);
  table.setFormat(format);
}

class Guide : public QWidget {
 public:
  explicit Guide(QWidget* parent) : QWidget(parent, Qt::Window), pages_(new QTextBrowser) {
    setObjectName("guida");
    setWindowTitle("Guida di Tarvex");
    setAttribute(Qt::WA_DeleteOnClose);
    resize(720, 640);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(pages_);
    pages_->setFrameShape(QFrame::NoFrame);
    pages_->setOpenExternalLinks(false);
    pages_->document()->setDocumentMargin(24);
    QFile file(":/guida/primi-passi.md");
    if (file.open(QIODevice::ReadOnly)) pages_->setMarkdown(QString::fromUtf8(file.readAll()));
    for (QTextFrame* frame : pages_->document()->rootFrame()->childFrames())
      if (auto* table = qobject_cast<QTextTable*>(frame)) quiet(*table);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape) return void(close());
    QWidget::keyPressEvent(event);
  }

 private:
  QTextBrowser* pages_;
};

}  // namespace

void showGuide(QWidget* parent) {
  auto* guide = parent->findChild<QWidget*>("guida", Qt::FindDirectChildrenOnly);
  if (!guide) guide = new Guide(parent);
  guide->show();
  guide->raise();
  guide->activateWindow();
}

}  // namespace desktop
