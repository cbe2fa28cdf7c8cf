// A plausible company, drawn from a seed: what the demonstration enters through the forms. The same seed
// gives the same company on every machine.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace demo {

struct Destination {
  std::string nominativo, indirizzo, citta;
};

struct Customer {  // or supplier
  std::string ragsoc, indirizzo, cap, citta, provincia, partitaiva, telefono, pagamento;
  // The rest of the card (cards.cpp).
  std::string ragsoc2 = {}, fax = {}, email = {}, banca = {}, abi = {}, cab = {};
  std::string tipo = {}, zona = {}, note = {};
  std::vector<Destination> destinations = {};
  // Of customers.
  std::string agente = {}, provvigione = {}, listino = {}, sconto = {}, fido = {};
};

struct Voice {  // of the chart
  std::string description;
  std::string parent;            // description of its mastro or conto; empty for a mastro
  std::string_view natura = {};  // of a mastro: "Patrimoniale" or "Economico"
};

struct InvoiceRow {
  std::string contropartita, codiva;
  double imponibile = 0;
  double rate = 0;  // of the code, in percent
};

// A sales or purchase invoice, or a credit note with its amounts positive.
struct Invoice {
  int number = 0;
  std::string date;     // dd/mm/yyyy, of registration and document
  std::string subject;  // customer or supplier
  std::string description;
  std::vector<InvoiceRow> rows;
  bool creditNote = false;
  int registro = 1;
  double total() const;  // rows with their VAT, as the screen computes it
};

struct Takings {  // of one rate
  std::string codiva;
  double gross = 0, rate = 0;
  double net() const;
  double vat() const;
};

struct Receipt {  // of one day
  int number = 0;
  std::string date;
  std::vector<Takings> takings;
  double total() const;
};

struct Movement {  // with as many lines as there are voices
  std::string date, description;
  std::string scheme;  // of an automated entry: it names the voices
  struct Line {
    std::string voice;
    double dare = 0, avere = 0;
  };
  std::vector<Line> lines;
};

struct Settled {  // an invoice collected or paid, whole but for an allowance
  std::string date, subject;
  int invoice = 0;
  std::string invoiceDate;  // from which it fell due
  double amount = 0, allowance = 0;
};

struct Company {
  std::string ragsoc, indirizzo, citta, partitaiva, year;
  std::vector<Voice> mastri, conti, sottoconti;
  std::vector<Customer> customers, suppliers;
  std::vector<Customer> agents;
  // Of January, February and March, by date and number.
  std::vector<Invoice> invoices, purchases;
  std::vector<Receipt> receipts;
  std::vector<Movement> movements;
  std::vector<Settled> collections, payments;
};

Company drawCompany(unsigned seed);

}  // namespace demo
