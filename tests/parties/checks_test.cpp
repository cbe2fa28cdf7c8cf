#include "parties/checks.h"

#include <doctest/doctest.h>

#include "chart/company.h"

using namespace tarvex;

TEST_CASE("an e-mail address has one @ and a dot behind it, but not directly") {
  for (const char* right : {"a@b.it", "nome.cognome@ditta.co.it", "a@b.", "@b.it", "a@b..it"})
    CHECK(emailIsRight(right));
  for (const char* wrong : {"", "a", "a.it", "a.b@it", "a@.it", "a@b.it@c", "a@@b.it", "a@b@c.it", "@", "."})
    CHECK_FALSE(emailIsRight(wrong));
}

TEST_CASE("a VAT number is compared with the first two voices that bear it") {
  const std::string number = "12345678903";
  const std::string customer = "Tarvex|Già registrato un altro cliente con la stessa partita iva";
  const std::string supplier = "Tarvex|Già registrato un altro fornitore con la stessa partita iva";
  struct Row {
    std::vector<std::string> kinds;  // of the voices that bear the number, in the order of their codes
    int customers, suppliers;        // messages
  };
  for (const Row& row :
       {Row{{}, 0, 0}, Row{{"c"}, 1, 0}, Row{{"f"}, 0, 1}, Row{{"c", "f"}, 1, 1}, Row{{"f", "c"}, 1, 1},
        Row{{"c", "c"}, 2, 0}, Row{{"f", "f", "c"}, 0, 2}, Row{{"ag", "s", "c"}, 0, 0}}) {
    test::Company books;
    int count = 0;
    for (const std::string& kind : row.kinds) {
      books.add(kind, "Voce " + std::to_string(++count));
      books.session.pc.A.partitaiva = number;
      books.session.pc.put(books.lastCode(), store::Put::rewrite);
    }
    books.add("c", "Vicino");  // the next key of the index
    books.session.pc.A.partitaiva = "12345678904";
    books.session.pc.put(books.lastCode(), store::Put::rewrite);
    warnOfSameVatNumber(books.session, number, kCustomer);
    CHECK(books.desk.boxes == std::vector<std::string>(static_cast<std::size_t>(row.customers), customer));
    CHECK(books.desk.beeps == row.customers);
    books.desk.boxes.clear();
    warnOfSameVatNumber(books.session, number, kSupplier);
    CHECK(books.desk.boxes == std::vector<std::string>(static_cast<std::size_t>(row.suppliers), supplier));
  }
}
