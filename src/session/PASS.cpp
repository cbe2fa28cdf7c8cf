// Password aziendale.
#include "session/PASS.h"

#include "session/forms.h"
#include "session/password.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Pass : public Form {
 public:
  Pass(Session& session, std::string_view kept);
  Layout layout() const override { return column({row({text1}), buttons({ok, annulla})}); }
  const std::optional<std::string>& right() const { return right_; }

 private:
  void confirm();

  const std::string kept_;
  std::optional<std::string> right_;
  Field text1{*this, "text1", "&Password:", Mask::password(40)};
  Button ok{*this, "ok", "OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Pass::Pass(Session& session, std::string_view kept) : Form(session.desk(), "PASS", "Password"), kept_(kept) {
  ok.onPress = [this] { confirm(); };
  annulla.onPress = [this] { close(); };
}

void Pass::confirm() {
  if (checkPassword(kept_, text1.text()) == PasswordCheck::wrong)
    desk().refuse("La password inserita non è corretta");
  else
    right_ = text1.text();
  close();
}

}  // namespace

std::optional<std::string> askPassword(Session& session, std::string_view kept) {
  Pass form(session, kept);
  session.desk().run(form);
  return form.right();
}

std::unique_ptr<ui::Form> makePass(Session& session) {
  return std::make_unique<Pass>(session, session.dataz.B.password);
}

}  // namespace tarvex
