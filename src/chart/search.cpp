// The search windows ricerca1 to ricerca8.
#include <algorithm>
#include <iterator>
#include <memory>
#include <vector>

#include "chart/account_field.h"
#include "chart/names.h"
#include "common/text.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

struct Window {
  std::string_view name, title;
  NameRun run;
  std::string_view kind = {};  // voices so few that all of them are read; the run is not used then
  bool structure = false;      // with the mastri and conti that a run of all the voices holds
};

// In the order of SearchList.
constexpr Window kWindows[] = {
    {"ricerca1", "Ricerca cliente", {58, "c"}},
    {"ricerca2", "Ricerca fornitore", {58, "f"}},
    {"ricerca3", "Ricerca sottoconto", {58, "s"}},
    {"ricerca4", "Ricerca cliente o fornitore", {59, "cf"}},
    {"ricerca5", "Ricerca sottoconto, cliente o fornitore", {1, {}}},
    {"ricerca6", "Ricerca agente", {}, "ag"},
    {"ricerca7", "Ricerca mastro", {}, "m"},
    {"ricerca8", "Ricerca conto", {}, "cc"},
    {"ricerca3", "Ricerca voce del piano dei conti", {59, "ss"}},
    {"ricerca5", "Ricerca voce del piano dei conti", {1, {}}, {}, true},
};

struct Line {
  std::string name, address, city, code;
};
using Lines = std::vector<Line>;

// What a window shows: some voices before the typed text and some from it on.
struct Excerpt {
  Lines before, from;
};

class LineRows : public Rows {
 public:
  explicit LineRows(Excerpt excerpt) : lines_(std::move(excerpt.before)) {
    std::move(excerpt.from.begin(), excerpt.from.end(), std::back_inserter(lines_));
  }
  std::size_t count() const override { return lines_.size(); }
  std::string cell(std::size_t row, std::size_t column) const override {
    const Line& line = lines_[row];
    return column == 0 ? line.name : column == 1 ? line.address : column == 2 ? line.city : line.code;
  }

 private:
  Lines lines_;
};

Line lineOf(const Session& session) {
  const rec::pc& voice = session.pc.B;
  return {voice.ragsoc, voice.indirizzo, voice.citta, session.pc.primaryKey()};
}

bool comesBefore(const Line& a, const Line& b) { return common::upper(a.name) < common::upper(b.name); }

// The run of all the voices holds mastri and conti beside what may be posted to.
bool isListed(const Window& window, const rec::pc& voice) {
  return window.run.index != 1 || window.structure || (voice.tipo != "m" && voice.tipo != "cc");
}

Lines linesBefore(Session& session, const Window& window, const std::string& place, std::size_t limit) {
  Lines lines;
  for (bool more = nameBefore(session, window.run, place); more && lines.size() < limit;
       more = previousName(session, window.run))
    if (isListed(window, session.pc.B)) lines.push_back(lineOf(session));
  std::reverse(lines.begin(), lines.end());
  return lines;
}

// The names that begin with what was typed, in alphabetical order however they are spelled.
Lines linesOf(Session& session, const Window& window, const std::vector<std::string>& spellings,
              std::size_t limit) {
  Lines lines;
  for (const std::string& spelled : spellings)
    for (bool more = firstName(session, window.run, spelled);
         more && lines.size() < limit && session.pc.B.ragsoc.starts_with(spelled);
         more = nextName(session, window.run))
      if (isListed(window, session.pc.B)) lines.push_back(lineOf(session));
  if (spellings.size() > 1) std::stable_sort(lines.begin(), lines.end(), comesBefore);
  return lines;
}

// They come first; the names that follow in the index fill the window.
Excerpt readExcerpt(Session& session, const Window& window, const std::string& typed, std::size_t limit) {
  const Spellings spellings = spellingsOf(session, window.run, typed);
  const bool found = !spellings.found.empty();
  const std::string& place = found ? spellings.found.front() : spellings.nearest;
  Excerpt excerpt;
  if (session.param.descrprecedenti == 1) excerpt.before = linesBefore(session, window, place, limit);
  excerpt.from = linesOf(session, window, spellings.found, limit);
  for (bool more = firstName(session, window.run, place); more && excerpt.from.size() < limit;
       more = nextName(session, window.run))
    if (isListed(window, session.pc.B) && !(found && beginsWith(session.pc.B.ragsoc, typed)))
      excerpt.from.push_back(lineOf(session));
  return excerpt;
}

Lines linesOfKind(Session& session, std::string_view kind) {
  Lines lines;
  store::Code result = session.pc.search(7, kind);
  for (; result == store::kOk && session.pc.B.tipo == kind; result = session.pc.next(7))
    lines.push_back(lineOf(session));
  if (result != store::kNotFound && result != store::kOk)
    session.CheckArchiveResult(store::Operation::read, session.pc.code, 1040);
  std::sort(lines.begin(), lines.end(), comesBefore);
  return lines;
}

Excerpt excerptOf(const Lines& lines, const std::string& typed, std::size_t limit, bool previous) {
  const auto place = std::lower_bound(lines.begin(), lines.end(), Line{typed, {}, {}, {}}, comesBefore);
  const auto before = static_cast<std::size_t>(place - lines.begin());
  const auto from = static_cast<std::size_t>(lines.end() - place);
  Excerpt excerpt;
  if (previous) excerpt.before.assign(place - static_cast<std::ptrdiff_t>(std::min(before, limit)), place);
  excerpt.from.assign(place, place + static_cast<std::ptrdiff_t>(std::min(from, limit)));
  return excerpt;
}

class Ricerca : public Form {
 public:
  Ricerca(Session& session, const Window& window, const std::string& typed);
  Layout layout() const override;
  const std::string& chosen() const { return chosen_; }

 private:
  void fill();
  void move(int rows);
  void accept();

  Session& session_;
  const Window& window_;
  std::string chosen_;

  Field ricerca{*this, "ricerca", "Ricerca:", Mask::text(static_cast<int>(kNameWidth))};
  List elenco{
      *this, "elenco", "Elenco", {{"Descrizione", 32}, {"Indirizzo", 26}, {"Città", 20}, {"Codice", 7}}};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

constexpr int kPage = 10;

Ricerca::Ricerca(Session& session, const Window& window, const std::string& typed)
    : Form(session.desk(), window.name, window.title), session_(session), window_(window) {
  ricerca.setText(typed);
  ricerca.onChange = [this] { fill(); };
  ricerca.on(Key::enter, [this] { accept(); });
  ricerca.on(Key::up, [this] { move(-1); });
  ricerca.on(Key::down, [this] { move(1); });
  ricerca.on(Key::pageUp, [this] { move(-kPage); });
  ricerca.on(Key::pageDown, [this] { move(kPage); });
  elenco.onPick = [this] { accept(); };
  ok.onPress = [this] { accept(); };
  annulla.onPress = [this] { close(); };
  fill();
}

Layout Ricerca::layout() const { return column({row({ricerca}), elenco, buttons({ok, annulla})}); }

void Ricerca::fill() {
  const Busy busy(desk());
  const std::size_t limit =
      session_.param.maxricerca > 0 ? static_cast<std::size_t>(session_.param.maxricerca) : 50;
  const std::string& typed = ricerca.text();
  Excerpt excerpt = window_.kind.empty() ? readExcerpt(session_, window_, typed, limit)
                                         : excerptOf(linesOfKind(session_, window_.kind), typed, limit,
                                                     session_.param.descrprecedenti == 1);
  // Behind the last name the one before it is the nearest.
  const bool atEnd = excerpt.from.empty();
  const int first = static_cast<int>(excerpt.before.size()) - (atEnd ? 1 : 0);
  elenco.setRows(std::make_unique<LineRows>(std::move(excerpt)));
  elenco.select(first);
}

void Ricerca::move(int rows) {
  const int last = static_cast<int>(elenco.rows().count()) - 1;
  if (last >= 0) elenco.select(std::clamp(elenco.selected() + rows, 0, last));
}

void Ricerca::accept() {
  if (elenco.selected() < 0) return desk().beep();
  chosen_ = elenco.rows().cell(static_cast<std::size_t>(elenco.selected()), 0);
  close();
}

}  // namespace

std::string searchAccount(Session& session, SearchList list, const std::string& typed) {
  Ricerca form(session, kWindows[static_cast<std::size_t>(list) - 1], typed);
  session.desk().run(form);
  return form.chosen();
}

}  // namespace tarvex
