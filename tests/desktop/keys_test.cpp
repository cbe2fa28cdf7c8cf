// Real keys and clicks on a form of the test's own: what the widgets do must be what the form decides.
#include <doctest/doctest.h>

#include <QComboBox>
#include <QMdiSubWindow>

#include "desktop/area.h"
#include "desktop/field_edit.h"
#include "desktop/form_view.h"
#include "desktop/form_window.h"
#include "desktop/memo_edit.h"
#include "desktop/screen.h"

namespace {

using namespace ui;

struct Sample : Form {
  explicit Sample(Desk& host) : Form(host, "sample", "Campione") {
    name.complete = [](const std::string& typed) {
      return std::string("ROSSI").starts_with(typed) ? std::string("ROSSI MARIO") : std::string();
    };
    number.onLeave = [this] { return number.text() == "13" ? (desk().beep(), Leave::stay) : Leave::go; };
    go.onPress = [this] { ++presses; };
    stop.onPress = [this] { close(); };
  }
  Layout layout() const override {
    return column({row({date, number}), row({name}), row({amount}), row({secret}), row({kind}), grid, notes,
                   buttons({go, stop})});
  }
  int presses = 0;
  Field date{*this, "date", "Data:", Mask::pattern("__/__/2003")};
  Field number{*this, "number", "&Numero:", Mask::digits(5)};
  Field name{*this, "name", "Nome:", Mask::text(30)};
  Field amount{*this, "amount", "Importo:", Mask::amount()};
  Field secret{*this, "secret", "Password:", Mask::password(10)};
  Choice kind{*this, "kind", "Tipo:", Choice::Look::combo, {"Primo", "Secondo", "Terzo"}};
  Grid grid{*this, "righe", 3, 2};
  GridColumn code{grid, "code", "Codice", Mask::upper(8)};
  GridChecks tick{grid, "tick", "Sì"};
  Memo notes{*this, "notes", "Note", Memo::Look::rich, 40};
  Button go{*this, "go", "&Avanti", Button::Role::main};
  Button stop{*this, "stop", "A&nnulla", Button::Role::cancel};
};

struct Typing : test::Screen {
  Typing() {
    startWithCompany();
    auto owned = std::make_unique<Sample>(program.desk());
    form = owned.get();
    program.desk().open(std::move(owned));
    settle();
    view = &dynamic_cast<desktop::FormWindow*>(program.window().area().activeSubWindow())->view();
  }
  Sample* form;
  desktop::FormView* view;
};

}  // namespace

TEST_CASE_FIXTURE(Typing, "fields take keys through their masks, and a refusal keeps the focus") {
  CHECK(form->focused() == &form->date);
  test::enter("5/1/");
  CHECK(form->date.text() == "05/01/2003");
  test::enter("13");
  CHECK(form->focused() == &form->number);
  CHECK(view->controlShown(*test::focus()) == &form->number);
  QTest::mouseClick(view->widgetOf(form->amount), Qt::LeftButton);
  CHECK(form->focused() == &form->number);
  CHECK(view->controlShown(*test::focus()) == &form->number);
  test::press(Qt::Key_Backspace);
  QTest::mouseClick(view->widgetOf(form->amount), Qt::LeftButton);
  CHECK(form->focused() == &form->amount);
  test::enter("1234.5");
  CHECK(form->amount.text() == "1.234,50");
  test::type("così");
  CHECK(form->secret.text() == "così");
  CHECK(static_cast<QLineEdit*>(test::focus())->text().size() == 4);
  CHECK_FALSE(static_cast<QLineEdit*>(test::focus())->text().contains("c"));
}

TEST_CASE_FIXTURE(Typing, "completion is marked, and the next key or Backspace takes it away") {
  User(*form).go(form->name);
  test::type("RO");
  auto* edit = static_cast<QLineEdit*>(test::focus());
  CHECK(edit->text() == "ROSSI MARIO");
  CHECK(edit->selectedText() == "SSI MARIO");
  test::type("x");
  CHECK(form->name.text() == "ROx");
  test::press(Qt::Key_Home);
  test::press(Qt::Key_Delete);
  CHECK(form->name.text() == "Ox");
}

TEST_CASE_FIXTURE(Typing, "letters with Alt belong to the form before the menus") {
  test::press(Qt::Key_N, Qt::AltModifier);
  CHECK(form->focused() == &form->number);
  test::press(Qt::Key_A, Qt::AltModifier);  // also "&Azienda"
  CHECK(form->presses == 1);
}

TEST_CASE_FIXTURE(Typing, "a combo goes by arrows and letters, the wheel over it by nothing") {
  User(*form).go(form->kind);
  test::press(Qt::Key_Down);
  CHECK(form->kind.index() == 0);
  test::type("t");
  CHECK(form->kind.index() == 2);
  CHECK(static_cast<QComboBox*>(view->widgetOf(form->kind))->currentIndex() == 2);
}

TEST_CASE_FIXTURE(Typing, "cells are entered row by row, ticked, and paged with their lines") {
  User(*form).go(form->code[1]);
  test::enter("abc");
  CHECK(form->code[1].text() == "ABC");
  CHECK(form->focused() == &form->tick[1]);
  test::type(" ");
  CHECK(form->tick[1].on());
  test::press(Qt::Key_Return);
  CHECK(form->focused() == &form->code[2]);
  test::press(Qt::Key_PageDown);
  CHECK(form->grid.page() == 1);
  CHECK(form->grid.line(2) == 5);
}

TEST_CASE_FIXTURE(Typing, "rich notes keep their styles, and nothing beyond the limit") {
  User(*form).go(form->notes);
  auto* edit = qobject_cast<QTextEdit*>(test::focus());
  REQUIRE(edit);
  QTest::keyClicks(edit, "uno ");
  edit->setFontWeight(QFont::Bold);
  QTest::keyClicks(edit, "due");
  CHECK(form->notes.text() == "uno <b>due</b>");
  QTest::keyClicks(edit, QString(60, 'x'));
  CHECK(form->notes.plainText().size() == 40);
  CHECK(edit->toPlainText().size() == 40);
  test::press(Qt::Key_Tab);
  CHECK(form->focused() == &form->go);
}

TEST_CASE_FIXTURE(Typing, "Escape closes the form, which is destroyed once the loop is back") {
  test::press(Qt::Key_Escape);
  CHECK(program.desk().forms().empty());
  settle();
  CHECK(program.window().area().subWindowList().empty());
}
