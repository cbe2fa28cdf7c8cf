// Each refusal of a form alone and with every other one: the first in the form's order must speak, and
// nothing may be written.
#include "ledger/books.h"

using namespace tarvex;
using test::At, test::Books, test::Fields;

namespace {

struct Refusal {
  Fields wrong;      // in place of what is right
  std::string told;  // "title|text"; empty: a beep alone
};

struct Screen {
  std::string unit;
  Fields right;
  std::vector<Refusal> refusals;  // in their order
};

const Fields kRows{{"controp(1)", "Servizi"},
                   {"imponibile(1)", "100,00"},
                   {"codiva(1)", "22"},
                   {"importoiva(1)", "22,00"},
                   {"text6", "122,00"}};

Fields with(Fields fields, const Fields& more) {
  fields.insert(fields.end(), more.begin(), more.end());
  return fields;
}

Refusal dates() {
  return {{{"text3", "16/01/2003"}}, "Errore|La data di registrazione è precedente alla data del documento"};
}

// The amounts of the further rows cancel out, so that these refusals are seen behind the balance.
std::vector<Refusal> rowRefusals() {
  return {{{{"controp(2)", "Servizi"}}, "Errore|E' STATA INSERITA LA CONTROPARTITA MA NON L'IMPONIBILE"},
          {{{"imponibile(3)", "5,00"},
            {"imponibile(4)", "-5,00"},
            {"controp(4)", "Servizi"},
            {"codiva(4)", "22"}},
           "Errore|E' STATO INSERITO L'IMPONIBILE MA NON LA CONTROPARTITA "},
          {{{"imponibile(5)", "5,00"},
            {"imponibile(6)", "-5,00"},
            {"controp(5)", "Servizi"},
            {"controp(6)", "Servizi"},
            {"codiva(6)", "22"}},
           "Errore|E' STATO INSERITO L'IMPONIBILE MA NON IL CODICE IVA"},
          {{{"importoiva(7)", "1,00"}, {"importoiva(8)", "-1,00"}},
           "Errore|E' STATO INSERITO UN IMPORTO IVA MA NON LA CONTROPARTITA"}};
}

std::vector<Refusal> joined(std::vector<Refusal> first, const std::vector<Refusal>& then) {
  first.insert(first.end(), then.begin(), then.end());
  return first;
}

// Of an amount one refusal hides the other: with text6 empty there is no balance to look at.
const Refusal kImbalance{{{"imponibile(9)", "0,01"}, {"controp(9)", "Servizi"}, {"codiva(9)", "22"}},
                         "SBILANCIO|-0,01"};

std::vector<Screen> screens() {
  const Fields sale = with({{"text1", "15/01/2003"}, {"text2", "8"}, {"text5", "BIANCHI SNC"}}, kRows);
  const std::vector<Refusal> sales =
      joined({dates(),
              {{{"text5", ""}}, "Errore|NON E' STATO INSERITO IL CLIENTE"},
              {{{"text5", "Servizi"}}, ""},
              {{{"text2", "000"}}, "Errore|NON E' STATO INSERITO IL NUMERO DEL DOCUMENTO"},
              // The field looks in its own register, the button in all of them.
              {{{"Text7", "2"}, {"text2", "7"}}, "Errore|Fattura già registrata"},
              {{{"text6", "0"}}, "Errore|NON E' STATO INSERITO L'IMPORTO DELLA FATTURA"},
              kImbalance},
             rowRefusals());
  const Fields purchase = with(
      {{"text1", "15/01/2003"}, {"text2", "8"}, {"text7", "8"}, {"text5", "FORNITURE VERDI SPA"}}, kRows);
  const std::vector<Refusal> purchases =
      joined({dates(),
              {{{"text5", ""}}, "Errore|NON E' STATO INSERITO IL FORNITORE"},
              {{{"text5", "BIANCHI SNC"}}, ""},
              {{{"text7", "00000"}}, "Errore|NON E' STATO INSERITO IL NUMERO DI PROTOCOLLO"},
              {{{"text6", "0"}}, "Errore|NON E' STATO INSERITO L'IMPORTO DELLA FATTURA"},
              kImbalance},
             rowRefusals());
  const Fields receipt = with({{"text1", "15/01/2003"}, {"text2", "8"}, {"text5", "Cassa contanti"}}, kRows);
  const std::vector<Refusal> receipts =
      joined({dates(),
              {{{"text2", "0"}}, "Errore|NON E' STATO INSERITO IL NUMERO DEL DOCUMENTO"},
              {{{"text5", ""}}, "Errore|NON E' STATO INSERITO IL CONTO"},
              {{{"text6", "0"}}, "Errore|NON E' STATO INSERITO L'IMPORTO "},
              kImbalance},
             rowRefusals());
  return {{"mcfv", sale, sales},
          {"mccv", sale, sales},
          {"MCFA", purchase, purchases},
          {"mcca", purchase, purchases},
          {"mcco", receipt, receipts}};
}

// The later of two wrong things is typed first, so that the earlier one stands where both use one field.
void typeWrong(Hands& hands, const Screen& screen, const Refusal& first, const Refusal* second) {
  test::fill(hands, screen.right);
  if (second) test::fill(hands, second->wrong);
  test::fill(hands, first.wrong);
  hands.go("text4");
}

std::string pressed(Books& books, At& at) {
  books.desk().boxes.clear();
  at.hands.press("Registra");
  const std::string box = books.desk().box();
  CHECK(books.desk().boxes.empty());
  return box;
}

}  // namespace

TEST_CASE("of any two refusals of a registration the earlier one speaks, and nothing is written") {
  for (const Screen& screen : screens()) {
    Books books;
    {
      At seven(books, "mcfv");  // the number that is taken
      test::fill(seven.hands, screens().front().right);
      seven.hands.set("text2", "7");
      seven.hands.press("Registra");
      REQUIRE(books.desk().boxes.empty());
    }
    const auto before = books.contents();
    for (std::size_t i = 0; i < screen.refusals.size(); ++i)
      for (std::size_t j = i; j < screen.refusals.size(); ++j) {
        CAPTURE(screen.unit);
        CAPTURE(screen.refusals[i].told);
        CAPTURE(screen.refusals[j].told);
        At at(books, screen.unit);
        typeWrong(at.hands, screen, screen.refusals[i], i == j ? nullptr : &screen.refusals[j]);
        books.desk().beeps = 0;
        CHECK(pressed(books, at) == screen.refusals[i].told);
        CHECK(books.desk().beeps == 1);
      }
    CHECK(books.contents() == before);
    // With nothing wrong it passes.
    At at(books, screen.unit);
    test::fill(at.hands, screen.right);
    CHECK(pressed(books, at).empty());
    CHECK(books.contents() != before);
  }
}
