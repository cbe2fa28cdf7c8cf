// A plausible company, drawn from a seed: what the demonstration enters through the forms. The same seed
// gives the same company on every machine.
#pragma once

#include <string>
#include <vector>

namespace demo {

struct Customer {
  std::string ragsoc, indirizzo, cap, citta, provincia, partitaiva, telefono, pagamento;
};

struct Voice {  // of the chart
  std::string description;
  std::string parent;  // description of its mastro or conto; empty for a mastro
};

struct InvoiceRow {
  std::string contropartita, codiva;
  double imponibile = 0;
  double rate = 0;  // of the code, in percent
};

struct Invoice {
  int number = 0;
  std::string date;  // dd/mm/yyyy, of registration and document
  std::string customer, description;
  std::vector<InvoiceRow> rows;
  double total() const;  // rows with their VAT, as the screen computes it
};

struct Company {
  std::string ragsoc, indirizzo, citta, partitaiva, year;
  std::vector<Voice> conti, sottoconti;
  std::vector<Customer> customers;
  std::vector<Invoice> invoices;  // of January, February and March, by date and number
};

Company drawCompany(unsigned seed);

}  // namespace demo
