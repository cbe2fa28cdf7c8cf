#include "desktop/first_start.h"

#include <QBoxLayout>
#include <QDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPainter>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>

#include "desktop/box.h"
#include "desktop/brand.h"
#include "desktop/style.h"
#include "desktop/words.h"
#include "session/installation.h"

namespace desktop {
namespace {

class Welcome : public QDialog {
 public:
  Welcome(const QString& archives, const QString& demoProgram)
      : demoProgram_(demoProgram),
        archives_(archives),
        words_(new QLabel),
        progress_(new QProgressBar),
        make_(new QPushButton("Azienda &dimostrativa")),
        begin_(new QPushButton("&Comincia")) {
    setWindowTitle("Benvenuti in Tarvex");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 14);
    column->setSpacing(14);
    column->addWidget(new Banner(420, 150));
    words_->setText(
        "Qui non c'è ancora nessuna azienda.<br><br><b>Comincia</b> apre Tarvex: la prima azienda si scrive "
        "con <i>Nuova azienda</i>.<br><b>Azienda dimostrativa</b> ne prepara prima una di prova, con piano "
        "dei conti, 40 clienti e un trimestre di fatture, per guardarsi intorno.");
    words_->setWordWrap(true);
    words_->setFixedWidth(420);
    words_->setContentsMargins(20, 0, 20, 0);
    column->addWidget(words_);
    progress_->setTextVisible(false);
    progress_->setFixedHeight(12);
    progress_->hide();
    column->addLayout(foot());
    column->setSizeConstraint(QLayout::SetFixedSize);
    connect(make_, &QPushButton::clicked, this, [this] { make(); });
    connect(begin_, &QPushButton::clicked, this, &QDialog::accept);
    connect(&demo_, &QProcess::readyReadStandardOutput, this, [this] { tell(); });
    connect(&demo_, &QProcess::finished, this, [this](int code) { finish(code == 0); });
    connect(&demo_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
      if (error == QProcess::FailedToStart) finish(false);
    });
  }

  // What is being made cannot be left halfway.
  void reject() override {
    if (demo_.state() == QProcess::NotRunning) QDialog::reject();
  }

 private:
  QLayout* foot() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(20, 0, 20, 0);
    begin_->setProperty(kMainButton, true);
    begin_->setDefault(true);
    make_->setAutoDefault(false);
    row->addWidget(progress_, 1);
    row->addStretch();
    row->addWidget(make_);
    row->addWidget(begin_);
    return row;
  }

  void make() {
    for (QPushButton* button : {make_, begin_}) button->hide();
    words_->setText("L'azienda dimostrativa si sta preparando: il piano dei conti, i clienti, le fatture.");
    progress_->show();
    demo_.start(demoProgram_, {"--data", archives_});
  }

  void tell() {
    while (demo_.canReadLine()) {
      const QByteArrayList numbers = demo_.readLine().trimmed().split(' ');
      if (numbers.size() != 2) continue;
      progress_->setMaximum(numbers[1].toInt());
      progress_->setValue(numbers[0].toInt());
    }
  }

  void finish(bool made) {
    if (!made)
      showBox({"L'azienda dimostrativa non è riuscita. Si può cominciare da un'azienda nuova.", "Errore",
               ui::Ask::ok, ui::Icon::warning},
              this);
    accept();
  }

  QString demoProgram_, archives_;
  QLabel* words_;
  QProgressBar* progress_;
  QPushButton *make_, *begin_;
  QProcess demo_;
};

}  // namespace

void welcome(const QString& archives, const QString& demoProgram) {
  const bool elsewhere = QFileInfo::exists(archives + "/rr");  // it may name the archives of a server
  if (elsewhere || !tarvex::isUntouched(utf8(archives)) || !QFileInfo(demoProgram).isExecutable()) return;
  Welcome(archives, demoProgram).exec();
}

}  // namespace desktop
