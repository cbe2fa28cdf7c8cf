#include <doctest/doctest.h>

#include "chart/account_field.h"
#include "chart/company.h"
#include "ui/form.h"

using namespace tarvex;

namespace {

// The names in the list, the selected one in brackets.
std::string shown(ui::Form& form) {
  const auto& list = dynamic_cast<ui::List&>(*ui::find(form, "Elenco").control);
  std::string names;
  for (std::size_t row = 0; row < list.rows().count(); ++row) {
    const std::string name = list.rows().cell(row, 0);
    names += static_cast<int>(row) == list.selected() ? "[" + name + "]," : name + ",";
  }
  return names;
}

std::string opened(test::Company& books, SearchList list, const std::string& typed) {
  std::string names;
  const std::string window = "ricerca" + std::to_string(static_cast<int>(list));
  books.desk.modal[window] = [&](ui::Form& form) {
    names = shown(form);
    form.close();
  };
  CHECK(searchAccount(books.session, list, typed).empty());
  return names;
}

}  // namespace

TEST_CASE("a search window lists its kind from the typed text on") {
  test::Company books;
  for (const char* name : {"ALFA", "Beta", "ROSSI", "Rossi Luigi", "Ruta", "Verdi"}) books.add("c", name);
  for (const char* name : {"Fornace", "Rossini"}) books.add("f", name);
  books.add("ag", "Agente Zeta");
  books.add("ag", "agente Alba");
  CHECK(opened(books, SearchList::customers, "") == "[ALFA],Beta,ROSSI,Rossi Luigi,Ruta,Verdi,");
  CHECK(opened(books, SearchList::customers, "ruT") == "[Ruta],Verdi,");
  // Both spellings in front, then what follows the first of them.
  CHECK(opened(books, SearchList::customers, "rossi") == "[ROSSI],Rossi Luigi,Ruta,Verdi,");
  CHECK(opened(books, SearchList::customers, "si") == "[Verdi],");
  CHECK(opened(books, SearchList::customers, "zz").empty());
  CHECK(opened(books, SearchList::suppliers, "ros") == "[Rossini],");
  CHECK(opened(books, SearchList::customersAndSuppliers, "ro") == "[ROSSI],Rossi Luigi,Rossini,Ruta,Verdi,");
  CHECK(opened(books, SearchList::agents, "") == "[agente Alba],Agente Zeta,");
  CHECK(opened(books, SearchList::agents, "AGENTE Z") == "[Agente Zeta],");
  CHECK(opened(books, SearchList::mastri, "") == "[Costi],Crediti,Debiti,Ricavi,");
  CHECK(opened(books, SearchList::conti, "ric") == "[Ricavi diversi],");
  CHECK(opened(books, SearchList::sottoconti, "iva v") ==
        "[Iva vendite],Rivalsa spese bollo,Rivalsa spese imballo,"
        "Rivalsa spese trasporto,Rivalsa spese varie,");
  // What may be posted to: no mastri, no conti.
  CHECK(opened(books, SearchList::postable, "co") ==
        "[Crediti clienti ric. bancarie],Fornace,Iva acquisti,Iva corrispettivi,Iva indetraibile,Iva "
        "vendite,ROSSI,"
        "Rivalsa spese bollo,Rivalsa spese imballo,Rivalsa spese trasporto,Rivalsa spese varie,Rossi "
        "Luigi,Rossini,"
        "Ruta,Verdi,agente Alba,");
}

TEST_CASE("a search window holds as many names as the parameters say") {
  test::Company books;
  for (char letter = 'A'; letter <= 'J'; ++letter) books.add("c", std::string("Nome ") + letter);
  books.session.param.maxricerca = 3;
  CHECK(opened(books, SearchList::customers, "nome d") == "[Nome D],Nome E,Nome F,");
  books.session.param.descrprecedenti = 1;
  CHECK(opened(books, SearchList::customers, "nome d") == "Nome A,Nome B,Nome C,[Nome D],Nome E,Nome F,");
  CHECK(opened(books, SearchList::customers, "z") == "Nome H,Nome I,[Nome J],");
  CHECK(opened(books, SearchList::mastri, "deb") == "Costi,Crediti,[Debiti],Ricavi,");
}
