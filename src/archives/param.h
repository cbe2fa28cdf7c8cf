// Parameters of the installation: one record, key "1". Switches are 1 for on.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "archives/layout.h"

namespace rec {

struct param {
  std::array<std::string, 51> aspetticolli;  // list of the looks of parcels
  std::array<std::string, 51> nominativi;    // address list
  std::array<std::string, 51> indirizzi;
  std::int32_t coloresfondo = 0;  // of the frame
  std::string carattere;          // printing font, not proportional
  std::string ivatrasporto;       // VAT codes of the charges
  std::string ivaimballo;
  std::string ivavarie;
  std::string ivabollo;
  double bollosoglia1 = 0;   // stamp duty: up to this amount ...
  double bolloimporto1 = 0;  // ... this duty
  double bollosoglia2 = 0;
  double bolloimporto2 = 0;
  double bollosoglia3 = 0;
  double bolloimporto3 = 0;
  double bollosoglia4 = 0;
  double bolloimporto4 = 0;
  double bollosoglia5 = 0;
  double bolloimporto5 = 0;
  double bollosoglia6 = 0;        // over this amount ...
  double bolloimporto6 = 0;       // ... this duty
  double minimoiva = 0;           // least VAT debt that is paid
  std::int16_t ponderatoiva = 0;  // weighted VAT of charges
  std::int16_t mostratoolbar = 0;
  std::int16_t mostrastatusbar = 0;
  std::int16_t barrefacile = 0;
  std::int16_t quantitauno = 0;
  std::int16_t segnalascorta = 0;
  std::int16_t segnalaesistenza = 0;
  std::int16_t segnaladisponibilita = 0;
  std::int16_t schedasempre = 0;
  std::int16_t riservato32 = 0;
  std::int16_t riservato33 = 0;
  std::int16_t riservato34 = 0;
  std::int16_t decimalicomponenti = 0;  // 2 to 5
  std::int16_t decimaliprezzi = 0;      // 2 to 5; 0 reads as 2
  std::int16_t ncrimesse = 0;           // 1: credit notes become negative due dates
  std::int16_t corpostampa = 0;         // size of the printing font
  std::int16_t righepagina = 0;         // lines of a page
  std::int16_t agendaavvio = 0;
  std::int16_t precaricadoc = 0;
  std::int16_t resonotacredito = 0;
  std::int16_t saltorighesollecito = 0;
  std::int16_t impostastampante = 0;
  std::int16_t maxricerca = 0;  // rows of the search windows; 0 reads as 50
  std::int16_t descrprecedenti = 0;
  std::int16_t completamento = 0;     // 1: names are completed while typing
  std::int16_t tipocomposizione = 0;  // 1 tones, 2 pulses
  std::int16_t portamodem = 0;        // 1 to 3
  std::int16_t nonprefisso = 0;
  std::int16_t ivaseparata = 0;
  std::int16_t giornibackup = 0;  // days after which a backup is asked for
  std::int16_t immaginidoc = 0;
  std::int16_t formatoimmagine = 0;  // 1 JPEG, 2 BMP, 3 TIF
  double riservato55 = 0;
  double mostralistbar = 0;
  double immaginesfondo = 0;
  double immaginelistbar = 0;
  double stiletoolbar = 0;  // 1 to 5
  double predefinita = 0;   // 1 or 2
  double usaexcel = 0;
  double internetdiretto = 0;
  double riservato63 = 0;
  double riservato64 = 0;
  std::string zoomanteprima;  // percentage, as text
  std::array<std::string, 21> testosollecito;
  std::string accessolinea;
  std::string prefissoesterno;
  std::string primecifre;
  std::string contoservizio;  // account proposed by the service invoice
  std::string percorsoimmagini;
  std::string percorsosfondo;
  std::string percorsoexcel;
  std::string riservato74;
  std::string riservato75;
  std::string riservato76;
  std::string riservato77;
  std::string riservato78;
  std::string riservato79;
};

}  // namespace rec

template <>
struct archives::Layout<rec::param> {
  static constexpr std::string_view prefix = "param";
  static constexpr int code = 22;
  static constexpr std::string_view format =
      "A51$,A51$,A51$,&,$,$,$,$,$,#,#,#,#,#,#,#,#,#,#,#,#,#,%,%,%,%,%,%,%,%,%,%,%,%,%,%,%,"
      "%,%,%,%,%,%,%,%,%,%,%,%,%,%,%,%,%,#,#,#,#,#,#,#,#,#,#,$,A21$,$,$,$,$,$,$,$,$,$,$,$,"
      "$,$";
};
