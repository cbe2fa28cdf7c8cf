// Visualizzazione piano dei conti: a voice with its parents and its balances.
#include "chart/account_field.h"
#include "chart/forms.h"
#include "chart/voice_labels.h"

namespace tarvex {
namespace {

using namespace ui;

class Vispc : public Form {
 public:
  explicit Vispc(Session& session);
  Layout layout() const override {
    return column({row({voce}), labels.layout(), space(), buttons({scheda, chiudi})});
  }

 private:
  Leave show();
  void showAccount();

  Session& session_;
  std::string code_;  // of the voice shown, where it may be posted to
  Field voce{*this, "text1", "Voce:", Mask::text(30)};
  VoiceLabels labels{*this};
  Button scheda{*this, "scheda", "&Scheda contabile"};
  Button chiudi{*this, "chiudi", "&Chiudi", Button::Role::cancel};
};

Vispc::Vispc(Session& session)
    : Form(session.desk(), "VISPC", "Visualizzazione piano dei conti"), session_(session) {
  accountField(session, voce, {"m", "cc", "s", "c", "f", "ag"}, SearchList::allVoices);
  voce.onLeave = [this] { return show(); };
  scheda.setEnabled(session.knows("visched1"));
  scheda.onPress = [this] { showAccount(); };
  chiudi.onPress = [this] { close(); };
}

// Mastri and conti have none: nothing is posted to them.
void Vispc::showAccount() {
  if (code_.empty()) return desk().beep(), voce.focus();
  session_.VoiceToShow = code_;
  session_.run("visched1");
}

Leave Vispc::show() {
  labels.clear();
  code_.clear();
  if (voce.empty()) return Leave::go;
  if (!readVoice(session_, voce.text(), 1111)) {
    desk().beep();
    return Leave::stay;
  }
  const std::string& kind = session_.pc.B.tipo;
  if (kind != "m" && kind != "cc") code_ = session_.pc.primaryKey();
  labels.show(session_);
  return Leave::go;
}

}  // namespace

std::unique_ptr<Form> makeVispc(Session& session) { return std::make_unique<Vispc>(session); }

}  // namespace tarvex
