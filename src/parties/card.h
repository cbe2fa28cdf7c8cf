// The card of a customer, supplier or agent: its pages of tabs, each with what it shows of a record and what
// it stores. The screens that register and change parties are put together from these pages.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "parties/party.h"
#include "session/session.h"
#include "ui/form.h"

namespace tarvex {

// Each page belongs to `form`. store() puts what stands on the screen into a record of `pc` and leaves the
// fields without a control as they are; show() is its counterpart.

struct IdentityPage {
  explicit IdentityPage(ui::Form& owner);
  ui::Layout layout() const;
  void store(rec::pc& party) const;
  void show(const rec::pc& party);

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
  void show(const rec::pc& party);

  ui::Form& form;
  ui::Field banca{form, "text14", "Banca", ui::Mask::text(40)};
  ui::Field abi{form, "text15", "ABI", ui::Mask::digits(5)};
  ui::Field cab{form, "text16", "CAB", ui::Mask::digits(5)};
};

struct PaymentPage {
  PaymentPage(Session& of, ui::Form& owner, const PartyKind& kind);
  void load();  // the payment conditions in key order; the one chosen stays
  ui::Layout layout() const;
  void store(rec::pc& party) const;
  void show(const rec::pc& party);

  Session& session;
  ui::Form& form;
  ui::Choice pagamento{form, "pagamento", "Condizioni di pagamento", ui::Choice::Look::combo};
  std::unique_ptr<ui::Choice> scontocassa;  // of customers
};

// The three flags exclude each other; a list of codes is enabled with its flag alone.
struct VatPage {
  VatPage(Session& of, ui::Form& owner);
  void load();
  ui::Layout layout() const;
  void store(rec::pc& party) const;
  void show(const rec::pc& party);
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
  void show(const rec::pc& party);

  ui::Form& form;
  ui::Field sconto1{form, "text17", "Prima percentuale", ui::Mask::amount(2, 7)};
  ui::Field sconto2{form, "text18", "Seconda percentuale", ui::Mask::amount(2, 7)};
  ui::Field sconto3{form, "text19", "Terza percentuale", ui::Mask::amount(2, 7)};
  ui::Check automatico{form, "Check4", "Automatico"};
};

struct StatisticsPage {
  StatisticsPage(ui::Form& owner, const PartyKind& kind);
  ui::Layout layout() const;
  void store(rec::pc& party) const;
  void show(const rec::pc& party);

  ui::Form& form;
  ui::Field tipocliente;
  std::unique_ptr<ui::Field> zona;  // of customers, like the second free field
  ui::Field campolibero1;
  std::unique_ptr<ui::Field> campolibero2;
};

struct PriceListPage {
  explicit PriceListPage(ui::Form& owner) : form(owner) {}
  void load();
  ui::Layout layout() const;
  void store(rec::pc& party) const;
  void show(const rec::pc& party);

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
  // The agent's name is read by its code; a failure is reported with `position`.
  void show(const std::string& code, double commission, std::int16_t kind, int position);
  std::int16_t kind() const { return static_cast<std::int16_t>(tipoprovv.index()); }

  Session& session;
  ui::Form& form;
  ui::Choice agente;
  ui::Field provvigione;
  ui::Choice tipoprovv;

 private:
  std::string code_;  // shown in place of a name
};

struct InvoicingPage {
  InvoicingPage(Session& of, ui::Form& owner);
  ui::Layout layout() const;
  void store(rec::pc& party) const;
  void show(const rec::pc& party);

  ui::Form& form;
  ui::Check addebitobollo{form, "Check5", "Addebito spese bollo"};
  ui::Field dataultfatt{form, "text26", "Data ultima fattura:", ui::Mask::pattern("__/__/____")};
  ui::Field fatturatoprec{form, "text27", "Fatturato anno prec.:", ui::Mask::amount()};
  ui::Field saldoiniziale{form, "text28", "Saldo iniziale", ui::Mask::amount()};
  ui::Field fido{form, "text29", "Fido", ui::Mask::amount()};

 private:
  std::string shownDate_, shownTurnover_;
};

// What suppliers and agents have instead of it.
struct SupplierPage {
  SupplierPage(Session& of, ui::Form& owner);
  ui::Layout layout() const;
  void store(rec::pc& party) const;
  void show(const rec::pc& party);

  ui::Form& form;
  ui::Field saldoiniziale{form, "text28", "Saldo iniziale", ui::Mask::amount()};
  ui::Field datanascita{form, "text33", "Data di nascita", ui::Mask::pattern("__/__/____")};
  ui::Field comunenascita{form, "text35", "Comune di nascita", ui::Mask::text(30)};
  ui::Field provnascita{form, "text34", "Prov.", ui::Mask::text(2)};
};

// The slots 1 to 30 pass by one at a time; what is typed is kept here until the card is stored.
struct DestinationsPage {
  explicit DestinationsPage(ui::Form& owner);
  ui::Layout layout() const;
  void store(rec::pc& party) const;
  void show(const rec::pc& party);
  void clear();

  ui::Form& form;
  ui::Spin numero{form, "numero", "Destinazione", 1, 30};
  ui::Label contatore{form, "contatore", {}, 2};
  ui::Field nominativo{form, "text30", "Nominativo", ui::Mask::text(40)};
  ui::Field indirizzo{form, "text31", "Indirizzo", ui::Mask::text(40)};
  ui::Field citta{form, "text32", "Città", ui::Mask::text(40)};

 private:
  void showSlot();
  void keep();
  using Slots = decltype(rec::pc::destnominativo);  // slot 0 stays empty
  Slots nominativi_, indirizzi_, citta_;
};

struct PartyCard {
  PartyCard(Session& session, ui::Form& form, const PartyKind& kind);
  void load();  // fills the lists
  ui::Layout layout() const;
  // The fields of the screen; `saldo` as the initial one and the movements that stand in the record. False
  // when an agent could not be read, which has been reported.
  bool store(rec::pc& party) const;
  // What a list does not offer any longer, as a condition since deleted, is added to it, so that storing the
  // card does not lose it. Reads session.pc for the names of the agents.
  void show(const rec::pc& party);
  void clear();

  void checkWhileTyping();  // the VAT number and the e-mail, on leaving them

  // The refusals of saving, in their order.
  bool hasName();
  bool hasVatCodes();
  std::string name() const;  // trimmed: a blank at its end would hide a double

  Session& session;
  ui::Form& form;
  const PartyKind& kind;
  ui::Tabs schede;
  IdentityPage anagrafica;
  BankPage banca;
  PaymentPage pagamento;
  std::unique_ptr<VatPage> iva;  // null where the kind has no such page
  std::unique_ptr<DiscountPage> sconti;
  StatisticsPage statistiche;
  PriceListPage listino;
  std::unique_ptr<AgentPage> agente1, agente2;
  std::unique_ptr<InvoicingPage> fatturazione;
  std::unique_ptr<SupplierPage> contabilita;
  ui::Memo note;
  DestinationsPage destinazioni;

 private:
  bool storeAgents(rec::pc& party) const;
  void showAgents(const rec::pc& party);
  std::vector<ui::Control*> controls() const;  // of the card alone
  std::string knownVatNumber_;                 // of the record shown: another one of it is no news
};

// A choice of `text` in a list: added behind the others where the list does not offer it; empty: none.
void chooseKeeping(ui::Choice& choice, const std::string& text);
void setItemsKeepingChoice(ui::Choice& choice, std::vector<std::string> items);

void turnToCapitals(ui::Field& field);                  // on leaving it
void optionalDate(Session& session, ui::Field& field);  // blank, or right
std::string keyOf(const ui::Field& date);               // yyyymmdd; empty for a blank one
std::string shownDate(std::string_view key);            // dd/mm/yyyy; empty for what is no date

}  // namespace tarvex
