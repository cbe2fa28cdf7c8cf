#include <doctest/doctest.h>

#include <string>

#include "ui/fake_desk.h"

using namespace ui;

namespace {

// Every event in order, as "leave codice".
struct Log : std::vector<std::string> {
  std::string all() {
    std::string text;
    for (const auto& entry : *this) text += (text.empty() ? "" : ", ") + entry;
    clear();
    return text;
  }
};

struct Invoice : Form {
  explicit Invoice(Desk& desk) : Form(desk, "fattura", "Fattura") {
    for (Control* control : controls()) {
      control->onEnter = [this, control] { log.push_back("enter " + control->name()); };
      control->onLeave = [this, control] {
        log.push_back("leave " + control->name());
        if (control != refusing) return Leave::go;
        this->desk().beep();
        return Leave::stay;
      };
    }
    codice.hint = "F5 ricerca facilitata";
    registra.onPress = [this] { log.push_back("registra"); };
    annulla.onPress = [this] { close(); };
    on(Key::F6, [this] { log.push_back("F6"); });
  }
  void load() override { log.push_back("load"); }
  bool mayClose() override { return closable; }
  void unload() override { log.push_back("unload"); }

  Field codice{*this, "codice", "Codice:", Mask::digits(5)};
  Label nome{*this, "nome", "Nome"};
  Button cerca{*this, "cerca", "&Cerca"};
  Field importo{*this, "importo", "Importo:", Mask::amount()};
  Check sospeso{*this, "sospeso", "Sospeso"};
  Button registra{*this, "registra", "&Registra", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
  Log log;
  Control* refusing = nullptr;
  bool closable = true;
};

struct Rowed : Form {
  explicit Rowed(Desk& desk) : Form(desk, "righi", "Righi") {
    griglia.onPage = [this] {
      for (int row = 1; row <= 3; ++row) conto[row].setText(std::to_string(griglia.line(row)));
    };
    dare.onEach([this](Field& cell, int) { cell.onEnter = [this, &cell] { entered = cell.name(); }; });
    conto.onEach([this](Field& cell, int) {
      cell.onLeave = [this] { return ++left, refusing ? Leave::stay : Leave::go; };
    });
    passo.onChange = [this] { spun = passo.value(); };
    elenco.setRows({{"a", "1"}, {"b", "2"}, {"c", "3"}});
    elenco.onSelect = [this] { ++selections; };
    elenco.onPick = [this] { picked = elenco.selected(); };
  }
  Layout layout() const override {
    return column({tabs(schede, {column({griglia}), row({passo, vario}), column({elenco})})});
  }
  Tabs schede{*this, "schede", {"&Righi", "Passi", "Elenco"}};
  Grid griglia{*this, "griglia", 3, 4};
  GridColumn conto{griglia, "conto", "Conto", Mask::text(10)};
  GridColumn dare{griglia, "dare", "Dare", Mask::amount()};
  Spin passo{*this, "passo", "Passo", 1, 30};
  Field vario{*this, "vario", "Vario", Mask::text(5)};
  List elenco{*this, "elenco", "Elenco", {{"Nome", 10}, {"N.", 3, true}}};
  std::string entered;
  int left = 0, spun = 0, selections = 0, picked = -1;
  bool refusing = false;
};

struct CountingView : View {
  void refresh(const Control& control) override { last = control.name(); }
  void focusMoved() override { ++moves; }
  void closed() override { ++closings; }
  std::string last;
  int moves = 0, closings = 0;
};

}  // namespace

TEST_CASE("Enter goes on and Tab walks every control") {
  FakeDesk desk;
  Invoice form(desk);
  Hands at(form);
  CHECK(at.user.begin());
  CHECK(at.user.begin());  // loads once
  CHECK(form.log.all() == "load, enter codice");
  CHECK(desk.panels[2] == "F5 ricerca facilitata");
  CHECK(at.user.enter());
  CHECK(form.log.all() == "leave codice, enter importo");
  CHECK(desk.panels[2] == "");
  CHECK(at.user.key(Key::enter));
  CHECK(at.user.key(Key::enter));
  CHECK(at.focus() == "registra");
  form.log.clear();
  CHECK(at.user.key(Key::enter));
  CHECK(form.log.all() == "registra");
  CHECK(at.user.next());
  CHECK(at.focus() == "annulla");
  CHECK(at.user.next());
  CHECK(at.user.next());
  CHECK(at.focus() == "cerca");
  CHECK(at.user.previous());
  CHECK(at.user.previous());
  CHECK(at.focus() == "annulla");
  CHECK(at.user.key(Key::F6));
  CHECK_FALSE(at.user.key(Key::F7));
  CHECK(at.user.alt("r"));
  CHECK(form.log.back() == "registra");
}

TEST_CASE("a control that takes the focus back stops the command") {
  FakeDesk desk;
  Invoice form(desk);
  Hands at(form);
  at.user.begin();
  form.refusing = &form.codice;
  CHECK_FALSE(at.press("registra"));
  CHECK_FALSE(at.set("importo", "5"));
  CHECK_FALSE(at.check("sospeso", true));
  CHECK_FALSE(at.user.next());
  CHECK(at.focus() == "codice");
  CHECK(form.importo.empty());
  CHECK_FALSE(form.sospeso.on());
  CHECK(desk.beeps == 4);
  CHECK(at.set("codice", "7"));  // in the field itself one goes on
  CHECK(desk.beeps == 4);
  form.log.clear();
  CHECK(at.user.key(Key::escape));
  CHECK(form.log.all() == "enter annulla, unload");  // no leave codice
  CHECK_FALSE(form.isOpen());
  CHECK_FALSE(at.user.go(form.importo));
  CHECK_FALSE(at.user.type("1"));
  form.importo.focus();
  CHECK(at.focus() == "annulla");
}

TEST_CASE("leaving may change where the focus can go") {
  FakeDesk desk;
  Invoice form(desk);
  Hands at(form);
  at.user.begin();
  form.codice.onLeave = [&] { return form.importo.setEnabled(false), Leave::go; };
  CHECK(at.user.enter());
  CHECK(at.focus() == "sospeso");
  at.go("codice");
  form.importo.setEnabled(true);
  CHECK_FALSE(at.set("importo", "5"));  // disabled on the way
  CHECK(at.focus() == "codice");
  form.codice.onLeave = [&] { return form.sospeso.focus(), Leave::go; };
  form.importo.setEnabled(true);
  CHECK_FALSE(at.press("registra"));
  CHECK(at.focus() == "sospeso");
  form.sospeso.onChange = [&] { form.sospeso.setEnabled(false); };
  CHECK(at.check("sospeso", true));
  CHECK(at.focus() == "registra");  // what is disabled keeps no focus
  form.nome.focus();
  form.sospeso.focus();
  CHECK(at.focus() == "registra");
  CHECK_FALSE(at.go("nome"));
}

TEST_CASE("forms close once, from whatever handler") {
  FakeDesk desk;
  CountingView view;
  Invoice form(desk);
  form.setView(&view);
  Hands at(form);
  at.user.begin();
  form.closable = false;
  CHECK_FALSE(at.user.close());
  form.codice.onLeave = [&] { return form.close(), Leave::go; };
  CHECK_FALSE(at.user.next());
  form.close();
  CHECK(view.closings == 1);
  CHECK(form.log.back() == "unload");

  struct Refused : Form {
    explicit Refused(Desk& d) : Form(d, "rifiutata", "") {}
    void load() override { close(); }
    Field campo{*this, "campo", "Campo", Mask::text(3)};
  } refused(desk);
  desk.modal["rifiutata"] = [](Form&) { FAIL("it has closed itself"); };
  desk.run(refused);
  CHECK_FALSE(refused.isOpen());

  Invoice modal(desk);
  desk.modal["fattura"] = [](Form& shown) { CHECK(User(shown).close()); };
  desk.run(modal);
  CHECK(desk.forms().empty());
  CHECK(desk.panels[2] == "");

  desk.open(std::make_unique<Invoice>(desk));
  Invoice over(desk);
  over.codice.hint.clear();
  desk.modal["fattura"] = [&](Form& shown) {
    CHECK(desk.panels[2] == "");
    shown.close();
  };
  desk.run(over);
  CHECK(desk.panels[2] == "F5 ricerca facilitata");  // of the form that is on top again
  desk.forms().back()->close();
  desk.sweep();
  CHECK(desk.forms().empty());
}

TEST_CASE("amounts rest in their own form, and the view hears of changes") {
  FakeDesk desk;
  CountingView view;
  Invoice form(desk);
  form.setView(&view);
  Hands at(form);
  at.user.begin();
  at.set("importo", "1200");
  CHECK(at.text("importo") == "1200");
  at.user.next();
  CHECK(at.text("importo") == "1.200,00");
  form.cerca.setVisible(false);
  CHECK(view.last == "cerca");
  form.cerca.setVisible(true);
  view.last.clear();
  form.cerca.setVisible(true);
  CHECK(view.last.empty());
  desk.refuse("Errato", form.importo);
  CHECK(desk.box() == "Errore|Errato");
  CHECK(at.focus() == "importo");
}

TEST_CASE("a grid shows its lines page after page") {
  FakeDesk desk;
  Rowed form(desk);
  Hands at(form);
  at.user.begin();
  CHECK(at.focus() == "conto(1)");
  CHECK(at.user.key(Key::down));
  CHECK(at.user.key(Key::down));
  CHECK(at.focus() == "conto(3)");
  CHECK(at.user.key(Key::down));  // onto the next page
  CHECK(at.focus() == "conto(4)");
  CHECK(form.griglia.page() == 1);
  CHECK(at.text("conto(4)") == "4");
  CHECK(at.user.key(Key::up));
  CHECK(at.focus() == "conto(3)");
  CHECK(at.user.key(Key::pageDown));
  CHECK(at.focus() == "conto(6)");
  CHECK(at.user.goToLine(form.dare, 11));
  CHECK(at.focus() == "dare(11)");
  CHECK(form.entered == "dare(11)");
  CHECK(at.user.key(Key::pageUp));
  CHECK(form.entered == "dare(8)");
  CHECK_FALSE(at.user.goToLine(form.dare, 13));
  CHECK_FALSE(at.user.turn(form.griglia, 4));
  CHECK(at.go("conto(9)"));
  form.left = 0;
  form.refusing = true;
  CHECK_FALSE(at.user.turn(form.griglia, 0));
  CHECK_FALSE(at.user.goToLine(form.conto, 1));
  CHECK(form.left == 2);
  CHECK(form.griglia.page() == 2);
}

TEST_CASE("a grid has checks and labels among its fields") {
  struct Mixed : Form {
    explicit Mixed(Desk& on) : Form(on, "misto", "Misto") {}
    Grid griglia{*this, "griglia", 2, 2};
    GridColumn codice{griglia, "codice", "Codice", Mask::text(5)};
    GridChecks esente{griglia, "esente", "Esente"};
    GridLabels nota{griglia, "nota", "Nota", 8};
  };
  FakeDesk desk;
  Mixed form(desk);
  Hands at(form);
  at.user.begin();
  CHECK(at.user.enter());
  CHECK(at.focus() == "esente(1)");
  CHECK(at.user.type(" "));
  CHECK(form.esente[1].on());
  CHECK(at.user.enter());
  CHECK(at.focus() == "codice(2)");  // labels take no focus
  CHECK(at.user.goToLine(form.esente, 4));
  CHECK(at.focus() == "esente(4)");
  CHECK(cellOf(form.nota[2]).column == &form.nota);
  CHECK(find(form, "nota(4)").control == &form.nota[2]);
}

TEST_CASE("tabs, spins and lists") {
  FakeDesk desk;
  Rowed form(desk);
  Hands at(form);
  at.user.begin();
  CHECK(at.user.page(form.schede, 1));
  CHECK(at.focus() == "passo");
  CHECK(form.schede.current() == 1);
  CHECK(form.shows(form.vario));
  CHECK_FALSE(form.shows(form.conto[1]));
  CHECK(at.go("vario"));
  CHECK(at.user.spin(form.passo, 29));
  CHECK_FALSE(at.user.spin(form.passo, 31));
  CHECK(desk.beeps == 1);
  CHECK(form.spun == 29);
  CHECK(at.go("vario"));
  CHECK_FALSE(at.user.key(Key::pageDown));  // the grid's page is hidden, and the spin is a mere number
  form.passo.pages = true;
  CHECK(at.user.key(Key::pageDown));
  CHECK(form.spun == 30);
  CHECK(at.focus() == "vario");
  CHECK_FALSE(at.user.key(Key::pageDown));

  CHECK(at.user.pick(form.elenco, 1));  // its page comes forward
  CHECK(form.schede.current() == 2);
  CHECK(form.picked == 1);
  CHECK(at.user.key(Key::down));
  CHECK(at.user.key(Key::pageDown));
  CHECK(form.selections == 2);
  CHECK(at.user.key(Key::enter));
  CHECK(form.picked == 2);
  CHECK_FALSE(at.user.pick(form.elenco, 3));
  CHECK_FALSE(at.user.select(form.elenco, std::vector{0, 1}));
  CHECK(at.user.select(form.elenco, -1));
  CHECK(form.elenco.selected() == -1);
  CHECK(at.user.alt("R"));  // a page of tabs has its letter, too
  CHECK(at.focus() == "conto(1)");
  form.refusing = true;
  CHECK_FALSE(at.user.page(form.schede, 2));
  CHECK(form.schede.current() == 0);
  form.refusing = false;
  form.griglia.setVisible(false);
  CHECK_FALSE(form.conto[2].visible());
  CHECK(at.user.next());
  CHECK(at.focus() == "passo");
  CHECK_FALSE(at.user.goToLine(form.conto, 1));
}

TEST_CASE("a list that takes several marks") {
  FakeDesk desk;
  struct Marked : Form {
    explicit Marked(Desk& d) : Form(d, "segnata", "") { elenco.setRows({{"a"}, {"b"}, {"c"}}); }
    List elenco{*this, "elenco", "", {{"Nome", 9}}, List::Marks::several};
  } form(desk);
  User user(form);
  user.begin();
  CHECK(user.select(form.elenco, std::vector{2, 0, 2}));
  CHECK(form.elenco.selectedRows() == std::vector{0, 2});
  CHECK_FALSE(user.select(form.elenco, std::vector{0, 3}));
  CHECK(user.select(form.elenco, std::vector<int>()));
  CHECK(form.elenco.selected() == -1);
}
