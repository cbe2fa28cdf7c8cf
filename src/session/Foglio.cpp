// Foglio elettronico: the cells that a print has filled last in this session, or an empty sheet.
#include "session/forms.h"
#include "ui/form.h"
#include "ui/sheet.h"

namespace tarvex {
namespace {

using namespace ui;

class Foglio : public Form {
 public:
  explicit Foglio(Session& session);
  Layout layout() const override {
    return column({row({titolo}), row({righe}), space(), buttons({apri, annulla})});
  }

 private:
  std::shared_ptr<const Sheet> sheet_;
  Label titolo{*this, "titolo", "Foglio:", 40};
  Label righe{*this, "righe", "Righe:", 8};
  Button apri{*this, "apri", "A&pri", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Foglio::Foglio(Session& session)
    : Form(session.desk(), "Foglio", "Foglio elettronico"), sheet_(session.LastSheet) {
  if (!sheet_) sheet_ = std::make_shared<const Sheet>(Sheet{"Nuovo foglio", {20, 14, 14, 14}, {}});
  titolo.setText(sheet_->title);
  righe.setText(std::to_string(sheet_->rows.size()));
  apri.onPress = [this] {
    desk().sheet(sheet_);
    close();
  };
  annulla.onPress = [this] { close(); };
}

}  // namespace

std::unique_ptr<ui::Form> makeFoglio(Session& session) { return std::make_unique<Foglio>(session); }

}  // namespace tarvex
