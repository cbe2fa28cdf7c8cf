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
    return column({row({voce}), labels.layout(), space(), buttons({chiudi})});
  }

 private:
  Leave show();

  Session& session_;
  Field voce{*this, "text1", "Voce:", Mask::text(30)};
  VoiceLabels labels{*this};
  Button chiudi{*this, "chiudi", "&Chiudi", Button::Role::cancel};
};

Vispc::Vispc(Session& session)
    : Form(session.desk(), "VISPC", "Visualizzazione piano dei conti"), session_(session) {
  accountField(session, voce, {"m", "cc", "s", "c", "f", "ag"}, SearchList::allVoices);
  voce.onLeave = [this] { return show(); };
  chiudi.onPress = [this] { close(); };
}

Leave Vispc::show() {
  labels.clear();
  if (voce.empty()) return Leave::go;
  if (!readVoice(session_, voce.text(), 1111)) {
    desk().beep();
    return Leave::stay;
  }
  labels.show(session_);
  return Leave::go;
}

}  // namespace

std::unique_ptr<Form> makeVispc(Session& session) { return std::make_unique<Vispc>(session); }

}  // namespace tarvex
