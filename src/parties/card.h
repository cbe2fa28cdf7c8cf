// The card of a customer: its pages of tabs, each with what it stores. The screens that register, change and
// show customers and suppliers are put together from these pages.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

// Each page belongs to `form`; store() puts what stands on the screen into a record of `pc`.

struct IdentityPage {
  explicit IdentityPage(ui::Form& owner);
  ui::Layout layout() const;
  void store(rec::pc& party) const;

  ui::Form& form;
  ui::Field ragsoc{form, "text1", "Ragione sociale", ui::Mask::text(30)};
  ui::Field ragsoc2{form, "text2", {}, ui::Mask::text(30)};
  ui::Field indirizzo{form, "text3", "Indirizzo", ui::Mask::text(40)};
  ui::Field cap{form, "text4", "CAP", ui::Mask::digits(5)};
  ui::Field citta{form, "text5", "Città", ui::Mask::text(30)};
  ui::Field provincia{form, "text6", "Prov.", ui::Mask::text(2)};
  ui::Field nazione{form, "text7", "Nazione", ui::Mask::text(30)};
  ui::Field partitaiva{form, "text8", "Partita iva", ui::Mask::digits(11)};
  ui::Field partitaivaestero{form, "text9", "Partita iva estero", ui::Mask::text(16)};
  ui::Field codicefiscale{form, "text10", "Codice fiscale", ui::Mask::text(16)};
  ui::Field telefono{form, "text11", "Tel.", ui::Mask::text(20)};
  ui::Field fax{form, "text12", "Fax", ui::Mask::text(20)};
  ui::Field email{form, "text13", "e-mail", ui::Mask::text(60)};
};

struct BankPage {
  explicit BankPage(ui::Form& owner) : form(owner) {}
  ui::Layout layout() const;
  void store(rec::pc& party) const;

  ui::Form& form;
  ui::Field banca{form, "text14", "Banca", ui::Mask::text(40)};
  ui::Field abi{form, "text15", "ABI", ui::Mask::digits(5)};
  ui::Field cab{form, "text16", "CAB", ui::Mask::digits(5)};
};

struct PaymentPage {
  PaymentPage(Session& of, ui::Form& owner);
  void load();  // the payment conditions in key order; the one chosen stays
  ui::Layout layout() const;
  void store(rec::pc& party) const;

  Session& session;
  ui::Form& form;
  ui::Choice pagamento{form, "pagamento", "Condizioni di pagamento", ui::Choice::Look::combo};
  ui::Choice scontocassa{form, "scontocassa", "Sconto cassa", ui::Choice::Look::combo};
};

// The three flags exclude each other; a list of codes is enabled with its flag alone.
struct VatPage {
  VatPage(Session& of, ui::Form& owner);
  void load();
  ui::Layout layout() const;
  void store(rec::pc& party) const;
  void enableCodes();

  Session& session;
  ui::Form& form;
  ui::Check esente{form, "Check1", "Esente iva"};
  ui::Choice codiceEsente{form, "codiceesente", "Codice", ui::Choice::Look::combo};
  ui::Check sospensione{form, "Check2", "Sospensione iva"};
  ui::Check ridotta{form, "Check3", "Iva ridotta"};
  ui::Choice codiceRidotta{form, "codiceridotta", "Codice", ui::Choice::Look::combo};

 private:
  void choose(const ui::Check& chosen);
};

struct DiscountPage {
  explicit DiscountPage(ui::Form& owner) : form(owner) {}
  ui::Layout layout() const;
  void store(rec::pc& party) const;

  ui::Form& form;
  ui::Field sconto1{form, "text17", "Prima percentuale", ui::Mask::amount(2, 7)};
  ui::Field sconto2{form, "text18", "Seconda percentuale", ui::Mask::amount(2, 7)};
  ui::Field sconto3{form, "text19", "Terza percentuale", ui::Mask::amount(2, 7)};
  ui::Check automatico{form, "Check4", "Automatico"};
};

struct StatisticsPage {
  explicit StatisticsPage(ui::Form& owner) : form(owner) {}
  ui::Layout layout() const;
  void store(rec::pc& party) const;

  ui::Form& form;
  ui::Field tipocliente{form, "text20", "Tipo cliente", ui::Mask::text(20)};
  ui::Field zona{form, "text21", "Zona", ui::Mask::text(10)};
  ui::Field campolibero1{form, "text22", "Campo libero 1", ui::Mask::text(30)};
  ui::Field campolibero2{form, "text23", "Campo libero 2", ui::Mask::text(30)};
};

struct PriceListPage {
  explicit PriceListPage(ui::Form& owner);
  ui::Layout layout() const;
  void store(rec::pc& party) const;

  ui::Form& form;
  ui::Choice listino{form, "listino", "Listino prezzi", ui::Choice::Look::combo};
};

struct AgentPage {
  struct Names {
    std::string_view agent, commission, kind;
  };
  AgentPage(Session& of, ui::Form& owner, const Names& names);
  void load();  // the agents by name; the one chosen stays
  ui::Layout layout() const;
  // The code of the agent chosen, read by the name; empty when there is none. False when the read failed,
  // which has been reported with `position`.
  bool readCode(std::string& code, int position) const;
  std::int16_t kind() const { return static_cast<std::int16_t>(tipoprovv.index()); }

  Session& session;
  ui::Form& form;
  ui::Choice agente;
  ui::Field provvigione;
  ui::Choice tipoprovv;
};

struct InvoicingPage {
  InvoicingPage(Session& of, ui::Form& owner);
  ui::Layout layout() const;
  void store(rec::pc& party) const;

  Session& session;
  ui::Form& form;
  ui::Check addebitobollo{form, "Check5", "Addebito spese bollo"};
  ui::Field dataultfatt{form, "text26", "Data ultima fattura:", ui::Mask::pattern("__/__/____")};
  ui::Field fatturatoprec{form, "text27", "Fatturato anno prec.:", ui::Mask::amount()};
  ui::Field saldoiniziale{form, "text28", "Saldo iniziale", ui::Mask::amount()};
  ui::Field fido{form, "text29", "Fido", ui::Mask::amount()};
};

// The slots 1 to 30 pass by one at a time; what is typed is kept here until the card is stored.
struct DestinationsPage {
  explicit DestinationsPage(ui::Form& owner);
  ui::Layout layout() const;
  void store(rec::pc& party) const;
  void clear();

  ui::Form& form;
  ui::Spin numero{form, "numero", "Destinazione", 1, 30};
  ui::Label contatore{form, "contatore", {}, 2};
  ui::Field nominativo{form, "text30", "Nominativo", ui::Mask::text(40)};
  ui::Field indirizzo{form, "text31", "Indirizzo", ui::Mask::text(40)};
  ui::Field citta{form, "text32", "Città", ui::Mask::text(40)};

 private:
  void show();
  void keep();
  using Slots = decltype(rec::pc::destnominativo);  // slot 0 stays empty
  Slots nominativi_, indirizzi_, citta_;
};

struct CustomerCard {
  CustomerCard(Session& session, ui::Form& form);
  void load();  // fills the lists
  ui::Layout layout() const;
  // The fields of the screen, `saldo` as the initial one. False when an agent could not be read, which has
  // been reported.
  bool store(rec::pc& customer) const;
  void clear();

  ui::Form& form;
  ui::Tabs schede;
  IdentityPage anagrafica;
  BankPage banca;
  PaymentPage pagamento;
  VatPage iva;
  DiscountPage sconti;
  StatisticsPage statistiche;
  PriceListPage listino;
  AgentPage agente1, agente2;
  InvoicingPage fatturazione;
  ui::Memo note;
  DestinationsPage destinazioni;
};

}  // namespace tarvex
