#include "driver/sample_forms.h"

#include <stdexcept>

#include "session/company.h"
#include "tools/scratch.h"
#include "ui/form.h"
#include "ui/report.h"

namespace test {
namespace {

using namespace ui;
using tarvex::Session;
using tarvex::Unit;

class Choosing : public Form {  // chooses a company by itself, whose archives are not there
 public:
  explicit Choosing(Session& session)
      : Form(session.desk(), "SCELTA", "Scelte iniziali"), session_(session) {}
  void load() override {
    tarvex::enterCompany(session_, "AD", "Prova", "2003", "01");
    close();
  }

 private:
  Session& session_;
  Button ok{*this, "ok", "&OK"};
};

class Customer : public Form {
 public:
  explicit Customer(Session& session) : Form(session.desk(), "RCLIENTE", "Cliente") {}
  bool mayClose() override { return desk().confirm("Chiudere ?"); }

 private:
  Field nome{*this, "nome", "Nome:", Mask::text(30)};
};

class Voice : public Form {
 public:
  explicit Voice(Session& session) : Form(session.desk(), "RPC", "Voce") {
    ancora.onPress = [&session] { session.run("RCLIENTE"); };
    fine.onPress = [this] {
      close();
      desk().warn("chiusa");
    };
  }

 private:
  Button ancora{*this, "ancora", "A&ncora"};
  Button fine{*this, "fine", "&Fine"};
};

class Sample : public Form {
 public:
  explicit Sample(Session& session);
  Layout layout() const override;

 private:
  void ask();
  void print();

  Field text1{*this, "text1", "Data reg.:", Mask::pattern("__/__/2003")};
  Field text2{*this, "text2", "N. doc.:", Mask::digits(6)};
  Field cliente{*this, "cliente", "Cliente:", Mask::text(30)};
  Field segreto{*this, "segreto", "Password:", Mask::password(10)};
  Field via1{*this, "via1", "&Via:", Mask::text(30)};
  Field via2{*this, "via2", "Via", Mask::text(30)};
  Field sconto{*this, "sconto", "Sconti/Maggiorazioni", Mask::amount()};
  Field spento{*this, "spento", "Spento", Mask::text(5)};
  Field nascosto{*this, "nascosto", "Nascosto", Mask::text(5)};
  Label totale{*this, "totale", "Totale"};
  Choice tipo{*this, "tipo", "", Choice::Look::options, {"Fattura &immediata", "Fattura differita"}};
  Choice paga{*this, "Combo1", "Pagamento", Choice::Look::combo, {"CONTANTI", "30 GG"}};
  Check check1{*this, "Check1", "&Anteprima di stampa"};
  Spin copie{*this, "copie", "Copie", 1, 9};
  List elenco{*this, "elenco", "Elenco", {{"Nome", 20}, {"Città", 10}}};
  List marche{*this, "marche", "Marche", {{"Nome", 20}}, List::Marks::several};
  Grid righe{*this, "righe", 2, 2};
  GridColumn conto{righe, "conto", "Contropartita", Mask::text(10)};
  Tabs pagine{*this, "pagine", {"Dati", "&Note"}};
  Memo note{*this, "note", "Appunti"};
  Button chiedi{*this, "chiedi", "&Chiedi"};
  Button apri{*this, "apri", "A&pri"};
  Button errore{*this, "errore", "&Errore"};
  Button archivio{*this, "archivio", "Archi&vio"};
  Button stampa{*this, "stampa", "&Stampa"};
  Button annulla{*this, "annulla", "A&nnulla", Button::Role::cancel};
  std::vector<std::string> lines_ = std::vector<std::string>(5);
};

Sample::Sample(Session& session) : Form(session.desk(), "mcfv", "Registrazione") {
  spento.setEnabled(false);
  nascosto.setVisible(false);
  elenco.setRows({{"ROSSI", "Ivrea"}, {"BIANCHI", "Asti"}});
  marche.setRows({{"Uno"}, {"Due"}, {"Tre"}});
  text2.onLeave = [this] {
    if (text2.text() != "77") return Leave::go;
    desk().refuse("Fattura già registrata");
    return Leave::stay;
  };
  cliente.complete = [](const std::string& typed) {
    return typed == "ROS" ? std::string("ROSSI MARIO") : std::string();
  };
  conto.onEach([this](Field& cell, int row) {
    cell.onChange = [this, &cell, row] { lines_[static_cast<std::size_t>(righe.line(row))] = cell.text(); };
  });
  righe.onPage = [this] {
    for (int row = 1; row <= 2; ++row) conto[row].setText(lines_[static_cast<std::size_t>(righe.line(row))]);
  };
  chiedi.onPress = [this] { ask(); };
  apri.onPress = [this, &session] {
    session.run("RPC");
    desk().beep();
  };
  errore.onPress = [] { throw std::runtime_error("Divisione per zero"); };
  archivio.onPress = [this] { totale.setText(desk().chooseFile("Apri", "*", false).value_or("(nessuno)")); };
  stampa.onPress = [this] { print(); };
  annulla.onPress = [this] { close(); };
}

Layout Sample::layout() const {
  return tabs(pagine, {column({row({text1, text2, cliente, segreto}), group("Sede", {via1}),
                               group("Destinazione", {via2}), row({sconto, spento, nascosto, totale}), tipo,
                               paga, check1, copie, side({elenco, marche}), righe,
                               buttons({chiedi, apri, errore, archivio, stampa, annulla})}),
                       column({note})});
}

void Sample::ask() {
  desk().confirm("Annullare ?", "Attenzione", true);
  desk().show({"Salvare ?", "Tarvex", Ask::yesNoCancel, Icon::question});
  desk().show({"Procedere ?", "Tarvex", Ask::okCancel, Icon::information});
  desk().beep();
}

void Sample::print() {
  const auto report = std::make_shared<Report>("Registro");
  report->line("  prima  ");
  report->line();
  report->line("terza");
  report->newPage();
  report->line("altra pagina");
  desk().preview(report);
  desk().print(std::make_shared<Report>("Vuoto"));
}

template <class Kind>
std::unique_ptr<Form> make(Session& session) {
  return std::make_unique<Kind>(session);
}

constexpr Unit kUnits[] = {
    {"SCELTA", make<Choosing>}, {"mcfv", make<Sample>}, {"RPC", make<Voice>}, {"RCLIENTE", make<Customer>}};

}  // namespace

Played playSamples(std::string_view script, const std::filesystem::path& pdfProgram) {
  static const Scratch scratch;  // one installation for all, since each start makes one
  auto options = optionsFor(scratch.path());
  options.units = kUnits;
  options.pdfProgram = pdfProgram;
  Played played = run(options, "start\n" + std::string(script));
  played.lines.erase(played.lines.begin());
  played.answers.erase(played.answers.begin());
  return played;
}

}  // namespace test
