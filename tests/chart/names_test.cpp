#include "chart/names.h"

#include <doctest/doctest.h>

#include "chart/account_field.h"
#include "chart/company.h"
#include "ui/form.h"

using namespace tarvex;

namespace {

constexpr NameRun kAll{1, {}}, kCustomers{58, "c"};

struct AccountForm : ui::Form {
  AccountForm(Session& session, Kinds kinds) : Form(session.desk(), "prova", "Prova") {
    accountField(session, conto, kinds, SearchList::customers);
  }
  ui::Field conto{*this, "conto", "Conto:", ui::Mask::text(30)};
  ui::Field altro{*this, "altro", "Altro:", ui::Mask::text(30)};
};

// What the field shows after these keys; the part that the completion added stands in brackets.
std::string typed(AccountForm& form, const std::string& keys) {
  ui::User user(form);
  user.set(form.altro, "");
  form.conto.setText("");
  user.type(form.conto, keys);
  const ui::Edit& edit = form.conto.edit();
  if (edit.mark <= edit.cursor) return edit.text;
  return edit.text.substr(0, edit.cursor) + "[" + edit.text.substr(edit.cursor) + "]";
}

void addNames(test::Company& books) {
  for (const char* name :
       {"ROSSI MARIO", "Rossi Luigi", "Bianchi srl", "De Rossi & C.", "McDonald Srl", "ÉCURIE"})
    books.add("c", name);
  for (const char* name : {"Banca d'Alba", "Zucchero"}) books.add("s", name);
}

}  // namespace

TEST_CASE("names are found in every spelling in which they are stored") {
  test::Company books;
  addNames(books);
  using Found = std::vector<std::string>;
  CHECK(spellingsOf(books.session, kCustomers, "ros").found == Found{"ROS", "Ros"});
  CHECK(spellingsOf(books.session, kCustomers, "rossi l").found == Found{"Rossi L"});
  CHECK(spellingsOf(books.session, kCustomers, "MCD").found == Found{"McD"});
  CHECK(spellingsOf(books.session, kCustomers, "écu").found == Found{"ÉCU"});
  CHECK(spellingsOf(books.session, kCustomers, "").found == Found{""});
  CHECK(spellingsOf(books.session, kCustomers, "zuc").found.empty());
  CHECK(spellingsOf(books.session, kAll, "zuc").found == Found{"Zuc"});
  // How far a name goes along tells where the text would stand.
  CHECK(spellingsOf(books.session, kCustomers, "biz").nearest == "Biz");
  CHECK(spellingsOf(books.session, kCustomers, "???").nearest == "???");
  CHECK(spellingsOf(books.session, kCustomers, std::string(10'000'000, 'r')).found.empty());
}

TEST_CASE("a description is completed from the third character on") {
  test::Company books;
  addNames(books);
  AccountForm form(books.session, {"c"});
  CHECK(typed(form, "Ro") == "Ro");
  CHECK(typed(form, "ROS") == "ROS[SI MARIO]");
  CHECK(typed(form, "Ros") == "Ros[si Luigi]");
  CHECK(typed(form, "ros") == "ROS[SI MARIO]");
  CHECK(typed(form, "rossi l") == "Rossi L[uigi]");
  CHECK(typed(form, "rossi luigi") == "Rossi Luigi");
  CHECK(typed(form, "rossi x") == "rossi x");
  CHECK(typed(form, "mcd") == "McD[onald Srl]");
  CHECK(typed(form, "Ban") == "Ban");  // begins so, but is a sottoconto
  CHECK(books.desk.beeps == 0);

  CHECK(typed(form, "Ross") == "Ross[i Luigi]");
  ui::User user(form);
  user.key(ui::Key::backspace);
  CHECK(form.conto.text() == "Rossi Luigi");  // the typed letter went, and what is left completes again
  user.key(ui::Key::backspace);
  CHECK(form.conto.text() == "Ro");

  AccountForm both(books.session, {"s", "c"});
  CHECK(typed(both, "ban") == "Ban[ca d'Alba]");

  books.session.param.completamento = 0;
  AccountForm plain(books.session, {"c"});
  CHECK(typed(plain, "ROS") == "ROS");
}

TEST_CASE("the arrows walk through the names that the text begins") {
  test::Company books;
  books.add("c", "Rossi Anna");
  books.add("s", "Rossi conto");
  books.add("c", "Rossi Zeno");
  books.add("c", "Rosti");
  AccountForm form(books.session, {"c"});
  ui::User user(form);
  typed(form, "Rossi");
  user.key(ui::Key::down);
  CHECK(form.conto.text() == "Rossi Zeno");
  user.key(ui::Key::up);
  CHECK(form.conto.text() == "Rossi Anna");
}

TEST_CASE("a voice is read by its whole description alone") {
  test::Company books;
  const std::string long30(30, 'L');
  books.add("c", long30);
  CHECK(readVoice(books.session, "Cassa", 1) == false);
  CHECK(readVoice(books.session, "Crediti", 1));
  CHECK(books.session.pc.primaryKey() == "00001");
  CHECK(readVoice(books.session, long30, 1));
  CHECK_FALSE(readVoice(books.session, long30 + "L", 1));  // the index alone would find it
  CHECK(readVoiceByCode(books.session, "00012", 1));
  CHECK(books.session.pc.B.ragsoc == "Iva vendite");
  CHECK_FALSE(readVoiceByCode(books.session, "99999", 1));
  CHECK(books.desk.boxes.empty());
}
