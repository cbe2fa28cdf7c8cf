#include "desktop/about.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "desktop/brand.h"
#include "desktop/focus_back.h"
#include "desktop/style.h"

namespace desktop {
void showAbout(QWidget* parent) {
  const FocusBack back(parent);
  QDialog dialog(parent);
  dialog.setWindowTitle("Informazioni su Tarvex");
  auto* column = new QVBoxLayout(&dialog);
  column->setContentsMargins(0, 0, 0, 14);
  column->setSpacing(14);
  column->addWidget(new Banner(420, 150));
  auto* words =
      new QLabel(QString("<b>Tarvex %1</b><br>Contabilità, IVA e gestione della piccola azienda.<br><br>"
                         "Schermate disegnate con Qt %2.")
                     .arg(QApplication::applicationVersion(), qVersion()));
  words->setContentsMargins(20, 0, 20, 0);
  column->addWidget(words);
  auto* row = new QHBoxLayout;
  row->setContentsMargins(20, 0, 20, 0);
  auto* ok = new QPushButton("&OK");
  ok->setProperty(kMainButton, true);
  ok->setDefault(true);
  QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
  row->addStretch();
  row->addWidget(ok);
  column->addLayout(row);
  column->setSizeConstraint(QLayout::SetFixedSize);
  dialog.exec();
}

}  // namespace desktop
