// Cambio password: gives the open company a password, another one, or none.
#include "session/company.h"
#include "session/forms.h"
#include "session/password.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Passw : public Form {
 public:
  explicit Passw(Session& session);
  Layout layout() const override {
    return column({row({text1}), row({text2}), row({text3}), buttons({ok, annulla})});
  }
  void load() override;

 private:
  void confirm();
  std::string kept();

  Session& session_;
  Field text1{*this, "text1", "Password &attuale:", Mask::password(40)};
  Field text2{*this, "text2", "&Nuova password:", Mask::password(40)};
  Field text3{*this, "text3", "&Conferma nuova password:", Mask::password(40)};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "Annu&lla", Button::Role::cancel};
};

Passw::Passw(Session& session) : Form(session.desk(), "PASSW", "Cambio password"), session_(session) {
  ok.onPress = [this] { confirm(); };
  annulla.onPress = [this] { close(); };
}

void Passw::load() {
  const std::string password = kept();
  if (session_.store.LastArchiveResult != store::kOk) return close();
  text1.setEnabled(!password.empty());
}

std::string Passw::kept() {
  session_.dataz.search(0, session_.CompanyCode);
  session_.CheckArchiveResult(store::Operation::read, session_.dataz.code, 103);
  return session_.store.LastArchiveResult == store::kOk ? session_.dataz.B.password : std::string();
}

// The password is read again: another station may have changed it while the form stood.
void Passw::confirm() {
  const std::string password = kept();
  if (session_.store.LastArchiveResult != store::kOk) return;
  text1.setEnabled(!password.empty());
  if (!password.empty() && checkPassword(password, text1.text()) == PasswordCheck::wrong)
    return desk().refuse("La password inserita non è corretta", text1);
  if (text2.text() != text3.text())
    return desk().refuse("La conferma non corrisponde alla nuova password", text3);
  const std::optional<std::string> fresh = text2.text().empty() ? std::string() : keptPassword(text2.text());
  if (!fresh) return desk().refuse("Non è stato possibile registrare la password", text2);
  if (changePassword(session_, session_.CompanyCode, *fresh)) close();
}

}  // namespace

std::unique_ptr<ui::Form> makePassw(Session& session) { return std::make_unique<Passw>(session); }

}  // namespace tarvex
