// The last question before a year of a company is removed.
#include "session/cancell1.h"

#include "session/forms.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Cancell1 : public Form {
 public:
  explicit Cancell1(Session& session);
  Layout layout() const override { return column({row({warning}), row({question}), buttons({si, no})}); }
  bool yes() const { return yes_; }

 private:
  bool yes_ = false;
  Label warning{*this, "Label1"};
  Label question{*this, "Label2"};
  Button no{*this, "no", "&NO", Button::Role::cancel};  // has the focus: Enter by mistake removes nothing
  Button si{*this, "si", "&SI"};
};

Cancell1::Cancell1(Session& session) : Form(session.desk(), "cancell1", "ATTENZIONE") {
  warning.setText("Gli archivi indicati saranno distrutti");
  question.setText("CONFERMA:");
  si.onPress = [this] {
    yes_ = true;
    close();
  };
  no.onPress = [this] { close(); };
}

}  // namespace

bool confirmRemoval(Session& session) {
  Cancell1 form(session);
  session.desk().run(form);
  return form.yes();
}

std::unique_ptr<ui::Form> makeCancell1(Session& session) { return std::make_unique<Cancell1>(session); }

}  // namespace tarvex
