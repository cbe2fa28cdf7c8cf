// Verifica archivi, and Ricostruzione indici archivi: one call for each archive of the company, told in a
// list.
#include <array>

#include "session/forms.h"
#include "session/maintenance.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr std::array<std::string_view, 31> kVerified{
    "ct", "pc", "iv",    "ia",     "ic", "tt",   "mc",   "ax",    "ssmod", "si", "xx",
    "fa", "ma", "mm",    "ag",     "sd", "st",   "sf",   "lf",    "pf",    "cp", "mp",
    "sh", "ce", "param", "modulo", "gg", "cpag", "civa", "modrb", "dataz"};

constexpr std::array<std::string_view, 34> kRebuilt{
    "ct", "pc", "iv", "ia",    "ic",     "tt", "mc",   "pr",   "ax",    "ssmod", "si", "xx",
    "fa", "ma", "mm", "ag",    "sd",     "st", "sf",   "lf",   "pf",    "cp",    "mp", "ra",
    "sh", "ba", "ce", "param", "modulo", "gg", "cpag", "civa", "modrb", "dataz"};

struct Kind {
  std::string_view name, title, warning, done;
  std::span<const std::string_view> archives;
  store::Code (store::RecordStore::*call)(const std::string& stem, const store::Progress& progress);
};

constexpr Kind kVerification{"VALL1",   "Verifica archivi",        {}, "Gli archivi sono corretti",
                             kVerified, &store::RecordStore::VTVal};
constexpr Kind kRebuild{"VALL2",
                        "Ricostruzione indici archivi",
                        "Effettuare le copie di backup prima di confermare",
                        "La ricostruzione degli indici è stata effettuata",
                        kRebuilt,
                        &store::RecordStore::VTRebuild};

class Vall : public Form {
 public:
  Vall(Session& session, const Kind& kind);
  Layout layout() const override { return column({row({avviso}), elenco, buttons({ok, annulla})}); }

 private:
  void confirm();

  Session& session_;
  const Kind& kind_;
  Label avviso{*this, "avviso"};
  List elenco{*this, "elenco", "Archivi", {{"Esito", 40}}};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Vall::Vall(Session& session, const Kind& kind)
    : Form(session.desk(), kind.name, kind.title), session_(session), kind_(kind) {
  avviso.setText(kind.warning);
  avviso.setVisible(!kind.warning.empty());
  ok.onPress = [this] { confirm(); };
  annulla.onPress = [this] { close(); };
}

void Vall::confirm() {
  const int errors = maintain(session_, kind_.archives, elenco,
                              [this](const std::string& stem, const store::Progress& progress) {
                                return (session_.store.*kind_.call)(stem, progress);
                              });
  if (errors == 0)
    desk().show({std::string(kind_.done), "Tarvex", Ask::ok, Icon::information});
  else
    desk().show({"Ci sono errori negli archivi", "Errore", Ask::ok, Icon::warning});
}

}  // namespace

std::unique_ptr<Form> makeVall1(Session& session) { return std::make_unique<Vall>(session, kVerification); }
std::unique_ptr<Form> makeVall2(Session& session) { return std::make_unique<Vall>(session, kRebuild); }

}  // namespace tarvex
