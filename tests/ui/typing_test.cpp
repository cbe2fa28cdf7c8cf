#include <doctest/doctest.h>

#include <algorithm>
#include <set>
#include <string>

#include "common/text.h"
#include "ui/fake_desk.h"

using namespace ui;

namespace {

const std::set<std::string> kVoices = {"CASSA", "ROSSI MARIO", "ROSSI UFFICIO", "ROSSINI È C.", "ÈRRE SPA"};

std::string voiceFrom(const std::string& typed) {
  if (common::length(typed) < 3) return {};
  const auto found = kVoices.lower_bound(typed);
  return found != kVoices.end() && found->starts_with(typed) ? *found : "";
}

struct Entry : Form {
  explicit Entry(Desk& desk) : Form(desk, "entry", "Prova") {
    cliente.complete = [this](const std::string& typed) {
      asked.push_back(typed);
      return voiceFrom(typed);
    };
    cliente.browse = [](const std::string& typed, const std::string& shown, int way) -> std::string {
      auto at = kVoices.find(shown);
      if (way < 0 && at == kVoices.begin()) return {};
      at = way > 0 ? std::next(at) : std::prev(at);
      return at != kVoices.end() && at->starts_with(typed) ? *at : "";
    };
    cliente.onChange = [this] { ++changes; };
  }
  Field cliente{*this, "cliente", "Cliente:", Mask::text(20)};
  Field importo{*this, "importo", "Importo:", Mask::amount()};
  Field data{*this, "data", "Data:", Mask::pattern("__/__/2003")};
  Field nome{*this, "nome", "Nome:", Mask::text(8)};
  Memo note{*this, "note", "Note:", Memo::Look::plain, 10};
  Memo ricche{*this, "ricche", "Note ricche:", Memo::Look::rich};
  Choice tipo{*this, "tipo", "Tipo", Choice::Look::combo, {"Cliente", "Fornitore", "Cassa"}};
  Check attivo{*this, "attivo", "Attivo"};
  std::vector<std::string> asked;
  int changes = 0;
};

struct AtEntry {
  FakeDesk desk;
  Entry form{desk};
  User user{form};
  AtEntry() { user.begin(); }
  std::string selected(const Field& field) {
    const Edit& edit = field.edit();
    const auto from = std::min(edit.cursor, edit.mark);
    return edit.text.substr(from, std::max(edit.cursor, edit.mark) - from);
  }
};

}  // namespace

TEST_CASE("a description is completed from what was typed") {
  AtEntry at;
  Field& field = at.form.cliente;
  at.user.type("RO");
  CHECK(field.text() == "RO");
  at.user.type("S");
  CHECK(field.text() == "ROSSI MARIO");
  CHECK(at.selected(field) == "SI MARIO");
  CHECK(field.typed() == "ROS");
  at.user.type("SI U");
  CHECK(field.text() == "ROSSI UFFICIO");
  at.user.type("X");  // nothing begins so: the text stays as typed
  CHECK(field.text() == "ROSSI UX");
  CHECK(at.form.asked.back() == "ROSSI UX");
  CHECK(at.user.key(Key::backspace));
  CHECK(field.text() == "ROSSI UFFICIO");
  CHECK(at.user.key(Key::backspace));
  CHECK(field.text() == "ROSSI MARIO");
  CHECK(field.typed() == "ROSSI ");
  CHECK(at.user.key(Key::del));  // the selected rest goes
  CHECK(field.text() == "ROSSI ");
  CHECK(at.desk.beeps == 0);
  CHECK_FALSE(at.user.key(Key::escape));  // passed on: nobody wants it here
  CHECK(field.text() == "ROSSI ");

  at.user.set(field, "");
  at.user.type("ROS");
  CHECK(at.user.key(Key::enter));
  CHECK(at.form.focused() == &at.form.importo);
  CHECK(field.text() == "ROSSI MARIO");
  at.user.go(field);
  at.user.type("CAS");  // the whole text was selected
  CHECK(field.text() == "CASSA");
}

TEST_CASE("up and down walk through the descriptions that begin so") {
  AtEntry at;
  at.user.type("ROSS");
  CHECK(at.user.key(Key::down));
  CHECK(at.form.cliente.text() == "ROSSI UFFICIO");
  CHECK(at.user.key(Key::down));
  CHECK(at.form.cliente.text() == "ROSSINI È C.");
  CHECK(at.user.key(Key::up));
  CHECK(at.form.cliente.text() == "ROSSI UFFICIO");
  at.user.type("N");
  CHECK(at.form.cliente.text() == "ROSSN");  // still from what was typed
  CHECK(at.user.key(Key::down));
  CHECK(at.form.focused() == &at.form.importo);
}

TEST_CASE("accented letters are typed, completed and erased whole") {
  AtEntry at;
  at.user.type("ÈRR");
  CHECK(at.form.cliente.text() == "ÈRRE SPA");
  CHECK(at.selected(at.form.cliente) == "E SPA");
  at.user.key(Key::backspace);
  at.user.key(Key::backspace);
  CHECK(at.form.cliente.text() == "È");
  at.user.key(Key::backspace);
  CHECK(at.form.cliente.empty());
  CHECK_FALSE(at.user.key(Key::backspace));
  at.user.type(at.form.nome, "perché così");
  CHECK(at.form.nome.text() == "perché c");
  CHECK(at.desk.beeps == 3);
}

TEST_CASE("setting a field passes its mask without completion, with one beep") {
  AtEntry at;
  CHECK(at.user.set(at.form.cliente, "ROSS"));
  CHECK(at.form.cliente.text() == "ROSS");
  CHECK(at.form.asked.empty());
  CHECK(at.form.changes == 1);
  CHECK(at.user.set(at.form.cliente, "ROSS"));
  CHECK(at.form.changes == 1);
  CHECK(at.user.set(at.form.cliente, std::string(1000, 'x')));
  CHECK(at.desk.beeps == 1);
  CHECK(at.user.set(at.form.importo, "1.234,5"));
  CHECK(at.form.importo.number() == 1234.5);
  CHECK(at.user.next());
  CHECK(at.form.importo.text() == "1.234,50");
  CHECK(at.user.set(at.form.data, "5/1/"));
  CHECK(at.form.data.text() == "05/01/2003");
  at.user.type("4");
  CHECK(at.form.data.text() == "05/01/4003");
  CHECK(at.user.set(at.form.data, ""));
  CHECK(at.form.data.empty());
  at.form.data.setText("");
  CHECK(at.form.data.text() == "__/__/2003");
  at.form.nome.setText("a\x02\xFF");
  CHECK(at.form.nome.text() == "a \xEF\xBF\xBD");
}

TEST_CASE("typing an amount, and going on where one was") {
  AtEntry at;
  CHECK(at.user.type(at.form.importo, "1.2"));
  CHECK(at.user.type("5"));
  CHECK(at.form.importo.text() == "1,25");
  CHECK(at.user.type("9"));
  CHECK(at.desk.beeps == 1);
  at.user.key(Key::backspace);
  at.user.type("7");
  CHECK(at.form.importo.text() == "1,27");
  at.user.set(at.form.importo, "");
  at.user.type("1.234,50");
  CHECK(at.form.importo.text() == "1234,50");
}

TEST_CASE("a selection is replaced by typing and by pasting") {
  AtEntry at;
  at.user.set(at.form.nome, "abèdef");
  at.user.select(at.form.nome, 3, 6);  // from inside the è, which goes whole
  CHECK(at.selected(at.form.nome) == "ède");
  CHECK(at.user.paste("XY"));
  CHECK(at.form.nome.text() == "abXYf");
  CHECK(at.form.nome.edit().cursor == 4);
  CHECK(at.user.paste("123456\n"));
  CHECK(at.form.nome.text() == "abXY123f");
  CHECK(at.desk.beeps == 1);
  at.user.select(at.form.nome, 100, 0);
  at.user.type("z");
  CHECK(at.form.nome.text() == "z");
}

TEST_CASE("notes take lines up to their limit") {
  AtEntry at;
  CHECK(at.user.set(at.form.note, "una\r\ndue\x01"));
  CHECK(at.form.note.text() == "una\ndue ");
  CHECK(at.user.key(Key::enter));
  at.user.type("àb");
  CHECK(at.form.note.text() == "una\ndue \nà");
  CHECK(at.desk.beeps == 1);
  at.user.key(Key::backspace);
  CHECK(at.form.note.text() == "una\ndue \n");
  CHECK(at.user.key(Key::tab));
  CHECK(at.form.focused() == &at.form.ricche);

  at.form.ricche.setText("<b>Paga</b>");
  at.user.type(" <subito>\n");
  CHECK(at.form.ricche.text() == "<b>Paga &lt;subito&gt;<br></b>");
  CHECK(at.form.ricche.plainText() == "Paga <subito>\n");
  CHECK(at.user.set(at.form.ricche, "a < b"));
  CHECK(at.form.ricche.text() == "a &lt; b");
}

TEST_CASE("keys into controls that are no fields") {
  AtEntry at;
  at.user.go(at.form.tipo);
  CHECK(at.user.type("c"));
  CHECK(at.form.tipo.text() == "Cliente");
  CHECK(at.user.type("c"));
  CHECK(at.form.tipo.text() == "Cassa");
  CHECK(at.user.key(Key::up));
  CHECK(at.form.tipo.text() == "Fornitore");
  CHECK(at.user.type("x"));
  CHECK(at.desk.beeps == 1);
  at.user.go(at.form.attivo);
  CHECK(at.user.type(" "));
  CHECK(at.form.attivo.on());
  CHECK_FALSE(at.user.type("x"));
}
