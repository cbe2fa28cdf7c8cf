// What the forms ask of the window: boxes, other forms, the status bar, prints and files (ui/desk.h).
#pragma once

#include <QElapsedTimer>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "ui/desk.h"

class QDialog;
class QWidget;

namespace desktop {

class FormWindow;
class StopKey;
class MainWindow;

class WindowDesk : public ui::Desk {
 public:
  // The window must outlive the desk, and the forms that stand open the session: closeAll() before either
  // ends.
  explicit WindowDesk(MainWindow& window);
  ~WindowDesk() override;

  ui::Answer show(const ui::Box& box) override;
  void run(ui::Form& form) override;
  void open(std::unique_ptr<ui::Form> form) override;
  std::vector<ui::Form*> forms() const override;
  void bringToFront(ui::Form& form) override;
  void beep() override;
  void status(int panel, std::string_view text) override;
  void busy(bool on) override;
  bool progress(std::size_t done, std::size_t all) override;
  void preview(std::shared_ptr<const ui::Report> report) override;
  bool print(std::shared_ptr<const ui::Report> report) override;
  void sheet(std::shared_ptr<const ui::Sheet> sheet) override;
  std::optional<std::string> chooseFile(std::string_view title, std::string_view filter, bool save,
                                        std::string_view directory = {}) override;
  std::vector<std::string> printerFonts() const override;
  void end() override;
  void frameChanged() override;

  void closeAll();         // destroys every form of the frame, whatever it says
  bool printsAsk = false;  // the dialogue of the printer comes before each print
  int previewZoom = 0;     // percent; 0: the width of the window

 private:
  class Nested;
  void formClosed(FormWindow* window);
  void bury();
  void paintNow();
  void stand(QWidget& content, const char* name);

  MainWindow& window_;
  std::vector<std::pair<ui::Form*, QDialog*>> modal_;  // from the outermost
  std::vector<FormWindow*> closed_;                    // until no handler is running
  int depth_ = 0;                                      // event loops that handlers of forms have started
  int busy_ = 0;
  bool ending_ = false;
  std::unique_ptr<StopKey> stop_;  // while something is busy
  QElapsedTimer painted_;
};

}  // namespace desktop
