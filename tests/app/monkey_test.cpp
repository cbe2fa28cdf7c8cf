// A user without aim or patience: opens whatever screen, types, picks, presses and leaves as chance has it.
// The program stands, and where every key belongs to entries the books stay whole.
#include <doctest/doctest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "app/invoices.h"
#include "app/verify.h"
#include "tools/scratch.h"

namespace {

#ifdef TARVEX_LONG_TESTS
constexpr int kSteps = 100'000, kSeeds = 10;
#else
constexpr int kSteps = 15'000, kSeeds = 2;
#endif

class Monkey : public FakeDesk {
 public:
  explicit Monkey(unsigned seed) : chance_(seed) {}

  // Units that chance may open, and texts that mean something in these books.
  std::vector<std::string> units, texts;
  std::function<void(const std::string& unit)> openUnit;

  std::size_t below(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(chance_);
  }
  template <class Item>
  Item oneOf(const std::vector<Item>& items) {
    return items[below(items.size())];
  }

  // Questions and modal forms come in the middle of a step.
  ui::Answer show(const ui::Box& box) override {
    boxes.clear();
    return oneOf(ui::buttonsOf(box.ask));
  }
  void run(ui::Form& form) override {
    if (modal.contains(form.name())) return FakeDesk::run(form);
    if (!ui::User(form).begin()) return;
    constexpr int kPatience = 12, kDeepest = 3;
    ++depth_;
    for (int i = 0; depth_ <= kDeepest && i < kPatience && form.isOpen(); ++i) act(form);
    --depth_;
    if (form.isOpen()) form.close();
  }
  std::optional<std::string> chooseFile(std::string_view, std::string_view, bool, std::string_view) override {
    return {};
  }

  void step() {
    const auto open = forms();
    constexpr std::size_t kMost = 4;
    if (open.empty() || (open.size() < kMost && below(25) == 0)) return openUnit(oneOf(units));
    act(*open[below(open.size())]);
    previews.clear();
    sheets.clear();
    sweep();
  }

 private:
  void act(ui::Form& form) {
    ui::User user(form);
    if (below(10) == 0) return work(user, form);
    if (below(20) == 0) return void(user.close());
    if (below(6) == 0) return void(user.key(static_cast<ui::Key>(below(24))));
    std::vector<ui::Control*> within;
    for (ui::Control* control : form.controls())
      if (control->reachable()) within.push_back(control);
    if (!within.empty()) use(user, *oneOf(within));
  }

  // Now and then it does what the screen is for: every field as its caption asks, of a grid the first row,
  // and the main button.
  void work(ui::User& user, ui::Form& form) {
    const auto controls = form.controls();
    for (ui::Control* control : controls) {
      auto* field = dynamic_cast<ui::Field*>(control);
      if (field && form.isOpen() && ui::cellOf(*field).row < 2) user.set(*field, asked(*field));
    }
    for (ui::Control* control : controls)
      if (auto* button = dynamic_cast<ui::Button*>(control);
          button && form.isOpen() && button->role() == ui::Button::Role::main)
        user.press(*button);
  }

  std::string asked(const ui::Field& field) {
    const ui::GridCells* column = ui::cellOf(field).column;
    const std::string caption(column ? column->caption() : field.caption());
    const auto says = [&](std::string_view word) { return caption.find(word) != std::string::npos; };
    if (says("Data") || says("data")) return "15/01/2003";
    if (says("Scadenza")) return "15/02/2003";
    if (field.mask().alignsRight()) return "100";
    if (says("Codice iva")) return "E10";
    if (says("N. ") || says("Protocollo") || says("Numero")) return std::to_string(++number_);
    if (says("Cliente")) return "BIANCHI SNC";
    if (says("Fornitore")) return "VERDI SPA";
    if (says("Contropartita")) return "Cassa contanti";
    return oneOf(texts);
  }

  void use(ui::User& user, ui::Control& control) {
    if (auto* field = dynamic_cast<ui::Field*>(&control)) user.set(*field, oneOf(texts));
    if (auto* memo = dynamic_cast<ui::Memo*>(&control)) user.set(*memo, oneOf(texts));
    if (auto* check = dynamic_cast<ui::Check*>(&control)) user.check(*check, below(2) == 0);
    if (auto* button = dynamic_cast<ui::Button*>(&control)) user.press(*button);
    if (auto* spin = dynamic_cast<ui::Spin*>(&control)) user.spin(*spin, static_cast<int>(below(40)));
    if (auto* grid = dynamic_cast<ui::Grid*>(&control)) user.turn(*grid, static_cast<int>(below(6)));
    if (auto* tabs = dynamic_cast<ui::Tabs*>(&control))
      user.page(*tabs, static_cast<int>(below(tabs->pages().size())));
    if (auto* choice = dynamic_cast<ui::Choice*>(&control))
      user.choose(*choice, static_cast<int>(below(choice->items().size() + 1)) - 1);
    if (auto* list = dynamic_cast<ui::List*>(&control)) {
      const auto row = static_cast<int>(below(list->rows().count() + 1)) - 1;
      below(2) == 0 ? user.select(*list, row) : row >= 0 && user.pick(*list, row);
    }
  }

  std::mt19937 chance_;
  int depth_ = 0, number_ = 0;
};

// They change the company under the test.
constexpr std::string_view kElsewhere[] = {"SCELTA", "APRIAZ",   "DUPLICA",  "cancella", "cancell1",
                                           "PASS",   "PASSW",    "REGDATI",  "COPIAPC",  "PARGES"};
// What they do to the books `verify` has to tell: single rows, registers, due dates and codes by hand.
constexpr std::string_view kByHand[] = {"annsr", "ANNRIVA", "RMIVA", "VARSCA", "rtiva", "REGSCA"};

bool isIn(std::span<const std::string_view> names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

struct Cage {
  Cage(unsigned seed, bool byHand) : desk(seed) {
    desk.modal["SCELTA"] = test::found(desk, test::kCompany, test::kYear);
    if (!frame.start()) throw std::logic_error("no company");
    desk.modal.clear();
    test::addVoice(session, "00051", "BIANCHI SNC", "c", "00001", "00005");
    test::addVoice(session, "00052", "Merci c/vendite", "s", "00003", "00009");
    test::addVoice(session, "00053", "VERDI SPA", "f", "00002", "00006");
    test::addVoice(session, "00054", "Cassa contanti", "s", "00001", "00021");
    session.pc.flush();
    for (const tarvex::Unit& unit : tarvex::units())
      if (!isIn(kElsewhere, unit.name) && (byHand || !isIn(kByHand, unit.name)))
        desk.units.emplace_back(unit.name);
    desk.texts = {"BIANCHI SNC", "Merci c/vendite", "VERDI SPA", "Cassa contanti", "15/01/2003", "31/01/2003",
                  "31/02/2003",  "22",              "10",        "E10",            "zz",         "122",
                  "100",         "-50",             "0,005",     "1",              "7",          "",
                  "  ",          "99999",           "àèì"};
    desk.openUnit = [this](const std::string& unit) { session.open(unit); };
  }
  ~Cage() { desk.previews.clear(); }

  test::Scratch directory;
  Monkey desk;
  tarvex::Session session{{directory.path(), directory.path(), TARVEX_SOURCE_DIR "/data",
                           common::Clock("15/01/2003", "10:30")},
                          desk,
                          tarvex::units()};
  tarvex::Frame frame{session};
};

}  // namespace

TEST_CASE("whatever is pressed in whatever order, the program stands and its entries stay whole") {
  for (unsigned seed = 1; seed <= kSeeds; ++seed) {
    CAPTURE(seed);
    Cage cage(seed, false);
    for (int i = 0; i < kSteps; ++i) cage.desk.step();
    REQUIRE(cage.session.isCompanyOpen());
    for (const tarvex::Violation& violation : tarvex::verify(cage.session))
      if (!violation.notice) FAIL_CHECK(violation.rule, ": ", violation.text);
  }
}

TEST_CASE("nor does it fall over what is changed by hand") {
  for (unsigned seed = 1; seed <= kSeeds; ++seed) {
    CAPTURE(seed);
    Cage cage(seed, true);
    for (int i = 0; i < kSteps; ++i) cage.desk.step();
    CHECK(cage.session.isCompanyOpen());
  }
}
