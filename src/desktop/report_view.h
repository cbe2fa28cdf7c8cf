// The preview of a report: its pages, zoom, search in the text, copy of lines, and the ways to paper and PDF.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "desktop/key_bar.h"
#include "ui/report.h"

class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QScrollArea;
class QSpinBox;
class QToolButton;

namespace desktop {

class ReportSheet;

class ReportView : public QWidget {
 public:
  explicit ReportView(std::shared_ptr<const ui::Report> report, QWidget* parent = nullptr);

  void setZoom(int percent);  // 0: the page as wide as the window
  void setPage(int page);     // from 1; held within the report
  int page() const;
  int pages() const;
  QString selectedText() const;  // the lines marked, without trailing blanks
  // The next place, forwards or backwards, that reads `words` whatever the case; false when there is none.
  bool find(const QString& words, bool forwards = true);
  std::function<void(const std::shared_ptr<const ui::Report>&)> onPrint;
  std::vector<BarKey> keys();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildBar(QHBoxLayout& bar);
  QToolButton* addTool(QHBoxLayout& bar, const char* icon, const QString& words, const QString& tip,
                       std::function<void()> act);
  void zoomBy(int steps);
  void applyZoom();
  void showFound(bool found);
  void copy();
  void savePdf();
  void turn(int by);
  void turnToEnd();
  void layOutSome();
  void layOutRest();
  void showPages();
  void leave();

  std::shared_ptr<const ui::Report> report_;
  ReportSheet* sheet_;
  QScrollArea* scroll_;
  QSpinBox* page_;
  QComboBox* zoom_;
  QLineEdit* search_;
  QLabel* told_;
  QTimer growing_;
  int percent_ = 0;
};

}  // namespace desktop
