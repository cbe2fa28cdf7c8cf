// The variation of a card (parties/variation): what is shown of a record is what is stored of it.
#include <doctest/doctest.h>

#include <random>

#include "archives/catalogue.h"
#include "archives/fields.h"
#include "chart/company.h"
#include "parties/forms.h"

using namespace tarvex;

namespace {

// Characters of one, two, three and four bytes, with marks that other programs treat as their own.
std::string widest(std::mt19937& draw, std::size_t width) {
  static const std::string characters[] = {"A", "z", "0", "\"", "<", "&", ";", "è", "Ù", "€", "—", "𝄞"};
  std::string text;
  for (std::size_t i = 0; i < width; ++i) text += characters[draw() % std::size(characters)];
  return text;
}

double cents(std::mt19937& draw) { return (static_cast<double>(draw() % 2'000'000) - 1'000'000) / 100; }

std::string digits(std::mt19937& draw, std::size_t width) {
  std::string text;
  while (text.size() < width) text += static_cast<char>('0' + draw() % 10);
  return text;
}

// Every field as wide as its screen takes it.
rec::pc drawn(std::mt19937& draw, const std::string& tipo) {
  rec::pc p;
  p.tipo = tipo;
  p.ragsoc = widest(draw, 30);
  p.ragsoc2 = widest(draw, 30);
  p.indirizzo = widest(draw, 40);
  p.cap = digits(draw, 5);
  p.citta = widest(draw, 30);
  p.provincia = "ÀZ";
  p.nazione = widest(draw, 30);
  p.partitaiva = digits(draw, 11);
  p.partitaivaestero = widest(draw, 16);
  p.codicefiscale = widest(draw, 16);
  p.telefono = widest(draw, 20);
  p.fax = widest(draw, 20);
  p.email = widest(draw, 60);
  p.banca = widest(draw, 40);
  p.abi = digits(draw, 5);
  p.cab = digits(draw, 5);
  p.pagamento = draw() % 2 ? widest(draw, 40) : std::string();
  p.tipocliente = widest(draw, 20);
  p.campolibero1 = widest(draw, 30);
  p.listino = static_cast<std::int16_t>(draw() % 60);
  p.saldoiniziale = cents(draw);
  p.dare = cents(draw);
  p.avere = cents(draw);
  p.saldo = p.saldoiniziale + p.dare - p.avere;
  p.natura = "p";
  p.mastro = "0000" + std::to_string(draw() % 10);
  p.codice = digits(draw, 15);
  for (std::size_t slot = 1; slot < p.destnominativo.size(); ++slot) {
    p.destnominativo[slot] = widest(draw, 40);
    p.destindirizzo[slot] = widest(draw, 40);
    p.destcitta[slot] = widest(draw, 40);
  }
  p.zona = widest(draw, 10);
  p.campolibero2 = widest(draw, 30);
  p.scontocassa = static_cast<double>(draw() % 100) / 4;
  p.sconto1 = static_cast<std::int16_t>(draw());
  p.sconto2 = -100;
  p.scontoauto = static_cast<std::int16_t>(draw() % 2);
  const auto state = draw() % 4;
  p.esenteiva = state == 1;
  p.sospensioneiva = state == 2;
  p.ivaridotta = state == 3;
  if (state == 1 || state == 3) p.codiceiva = draw() % 2 ? "E10" : "XX9";
  p.agente1 = draw() % 2 ? "00777" : "";
  p.provvigione1 = 12.25;
  p.tipoprovv2 = 2;
  p.addebitobollo = 1;
  p.dataultfatt = "20030131";
  p.fatturato = cents(draw);
  p.fatturatoprec = cents(draw);
  p.fido = cents(draw);
  p.datanascita = "19600229";
  p.provnascita = "CN";
  p.comunenascita = widest(draw, 30);
  p.riservato57 = 3;
  setGroupKeys(p);
  return p;
}

// The names of the fields in which the two differ.
std::string differences(const rec::pc& one, const rec::pc& other) {
  const archives::Entry& entry = *archives::find("pc");
  std::string bytes, names;
  archives::encode(one, bytes);
  const auto fields = archives::fieldsOf(entry, bytes);
  archives::encode(other, bytes);
  const auto others = archives::fieldsOf(entry, bytes);
  for (std::size_t i = 0; i < fields.size(); ++i)
    if (fields[i].value != others[i].value) names.append(fields[i].name) += ' ';
  return names;
}

void openAndRegister(test::Company& books, std::unique_ptr<ui::Form> form, const std::string& name) {
  Hands hands(*form);
  hands.user.begin();
  hands.set("ricerca", name);
  hands.user.next();
  hands.press("registra");
  CHECK(books.desk.boxes.empty());
  CHECK(hands.focus() == "ricerca");
}

}  // namespace

TEST_CASE("a card that is opened and registered unchanged leaves its record as it stands, at its widest") {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    CAPTURE(seed);
    std::mt19937 draw(seed);
    test::Company books;
    books.session.AgentMode = seed % 3 == 0 ? 1 : 0;
    const std::string tipo = seed % 3 == 0 ? "ag" : seed % 3 == 1 ? "c" : "f";
    const rec::pc before = drawn(draw, tipo);
    books.session.pc.A = before;
    books.session.pc.put("00100", store::Put::write);
    openAndRegister(books, tipo == "c" ? makeVarcli(books.session) : makeVarforn(books.session),
                    before.ragsoc);
    CHECK(differences(before, books.voice("00100")) == "");
  }
}

TEST_CASE("passing by the name once more loses nothing of what was changed; another name takes its card") {
  test::Company books;
  books.add("c", "Rossi", "Bologna");
  books.add("c", "Verdi", "Forlì");
  const auto form = makeVarcli(books.session);
  Hands hands(*form);
  hands.user.begin();
  hands.set("ricerca", "Rossi");
  hands.set("text5", "Imola");
  hands.go("ricerca");
  hands.go("text5");
  CHECK(hands.text("text5") == "Imola");
  hands.set("ricerca", "Verdi");
  hands.go("text3");
  CHECK(hands.text("text5") == "Forlì");
  hands.press("registra");
  CHECK(books.voice("60001").citta == "Bologna");
}

TEST_CASE("another customer's VAT number is told, the card's own is not") {
  test::Company books;
  for (const auto& [name, number] : {std::pair{"Rossi", "12345678903"}, {"Verdi", "00488410010"}}) {
    books.add("c", name);
    books.session.pc.A.partitaiva = number;
    books.session.pc.put(books.lastCode(), store::Put::rewrite);
  }
  const auto form = makeVarcli(books.session);
  Hands hands(*form);
  hands.user.begin();
  hands.set("ricerca", "Rossi");
  hands.go("text8");
  hands.go("text3");
  CHECK(books.desk.boxes.empty());
  hands.set("text8", "00488410010");
  hands.go("text3");
  CHECK(books.desk.box() == "Tarvex|Già registrato un altro cliente con la stessa partita iva");
  CHECK(hands.focus() == "text3");
  hands.set("ricerca", "Verdi");
  hands.go("text8");
  hands.go("text3");
  CHECK(books.desk.boxes.empty());
}
