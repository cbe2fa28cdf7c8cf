// Invoices of two rows entered through the real form, for tests that kill whoever enters them.
#pragma once

#include <filesystem>
#include <string>

#include "session/station.h"

namespace test {

inline constexpr const char* kCompany = "ROSSI SRL";
inline constexpr const char* kYear = "2003";

inline void addVoice(tarvex::Session& session, const char* code, const char* name, const char* tipo,
                     const char* mastro, const char* conto) {
  session.pc.A = {};
  session.pc.A.ragsoc = name;
  session.pc.A.tipo = tipo;
  session.pc.A.mastro = mastro;
  session.pc.A.conto = conto;
  session.pc.put(code, store::Put::add);
}

// An installation with one company that has a customer and two voices to sell on.
inline void makeBooks(const std::filesystem::path& directory) {
  Station station(directory);
  station.start(found(station.desk, kCompany, kYear));
  addVoice(station.session, "00051", "BIANCHI SNC", "c", "00001", "00005");
  addVoice(station.session, "00052", "Merci c/vendite", "s", "00003", "00009");
  addVoice(station.session, "00053", "Prestazioni di servizi", "s", "00003", "00009");
  station.frame.end();
}

inline bool postInvoice(Station& station, ui::Form& mcfv, int number) {
  Hands hands(mcfv);
  hands.set("text1", "15/01/2003");
  hands.set("text2", std::to_string(number));
  hands.set("text5", "BIANCHI SNC");
  hands.set("text6", "1354,00");
  hands.set("controp(1)", "Merci c/vendite");
  hands.set("imponibile(1)", "1000,00");
  hands.set("codiva(1)", "22");
  hands.set("controp(2)", "Prestazioni di servizi");
  hands.set("imponibile(2)", "121,82");
  hands.set("codiva(2)", "10");
  hands.set("text6", "1354,00");
  hands.press("registra");
  return station.desk.boxes.empty() && hands.text("text2").empty();
}

}  // namespace test
