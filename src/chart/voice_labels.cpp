#include "chart/voice_labels.h"

#include "chart/account_field.h"
#include "common/mask.h"

namespace tarvex {
namespace {

std::string amount(double value) { return common::format("###,###,##0.00", value); }

std::string kindName(std::string_view tipo) {
  if (tipo == "m") return "Mastro";
  if (tipo == "cc") return "Conto";
  if (tipo == "c") return "Cliente";
  if (tipo == "f") return "Fornitore";
  return tipo == "ag" ? "Agente" : "Sottoconto";
}

}  // namespace

std::string shownCode(std::string_view codice) {
  std::string shown;
  for (std::size_t at = 0; at + 5 <= codice.size(); at += 5)
    if (const std::string_view level = codice.substr(at, 5); level != "00000")
      shown.append(shown.empty() ? "" : " ").append(level);
  return shown;
}

VoiceLabels::VoiceLabels(ui::Form& form)
    : codice(form, "codice", "Codice:", 20),
      descrizione(form, "descrizione", "Descrizione:", 32),
      tipo(form, "tipo", "Tipo:", 14),
      natura(form, "natura", "Natura:", 16),
      mastro(form, "mastro", "Mastro:", 32),
      conto(form, "conto", "Conto:", 32),
      iniziale(form, "saldoiniziale", "Saldo iniziale:", 16),
      dare(form, "dare", "Progr. dare:", 16),
      avere(form, "avere", "Progr. avere:", 16),
      saldo(form, "saldo", "Saldo:", 16) {}

ui::Layout VoiceLabels::layout() const {
  return ui::column({ui::group("Voce", {ui::row({codice, tipo, natura}), ui::row({descrizione}),
                                        ui::row({mastro}), ui::row({conto})}),
                     ui::group("Saldi", {ui::row({iniziale, dare}), ui::row({saldo, avere})})});
}

void VoiceLabels::show(Session& session) {
  const rec::pc voice = session.pc.B;
  const auto nameOf = [&](const std::string& code) {
    return !code.empty() && readVoiceByCode(session, code, 1110) ? session.pc.B.ragsoc : std::string();
  };
  codice.setText(shownCode(voice.codice));
  descrizione.setText(voice.ragsoc);
  tipo.setText(kindName(voice.tipo));
  const bool isMastro = voice.tipo == "m";
  natura.setText(!isMastro ? "" : voice.natura == "p" ? "patrimoniale" : "economico");
  mastro.setText(isMastro ? std::string() : nameOf(voice.mastro));
  conto.setText(isMastro || voice.tipo == "cc" ? std::string() : nameOf(voice.conto));
  iniziale.setText(amount(voice.saldoiniziale));
  dare.setText(amount(voice.dare));
  avere.setText(amount(voice.avere));
  saldo.setText(amount(voice.saldo));
}

void VoiceLabels::clear() {
  for (ui::Label* label :
       {&codice, &descrizione, &tipo, &natura, &mastro, &conto, &iniziale, &dare, &avere, &saldo})
    label->setText({});
}

}  // namespace tarvex
