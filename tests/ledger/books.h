// A company with some voices on a station of its own, and its forms opened as from the menu.
#pragma once

#include <doctest/doctest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/invoices.h"
#include "app/verify.h"
#include "archives/ia.h"
#include "archives/ic.h"
#include "archives/iv.h"
#include "archives/mc.h"
#include "archives/tt.h"
#include "session/station.h"
#include "tools/scratch.h"

namespace test {

struct Books {
  Books() {
    if (!station.start(found(station.desk, kCompany, kYear))) throw std::logic_error("no company");
    addVoice(session(), "00051", "BIANCHI SNC", "c", "00001", "00005");
    addVoice(session(), "00052", "Merci c/vendite", "s", "00003", "00009");
    addVoice(session(), "00053", "Servizi", "s", "00003", "00009");
    addVoice(session(), "00054", "FORNITURE VERDI SPA", "f", "00002", "00006");
    addVoice(session(), "00055", "Merci c/acquisti", "s", "00004", "00010");
    addVoice(session(), "00056", "Cassa contanti", "s", "00001", "00021");
    session().pc.flush();
  }

  tarvex::Session& session() { return station.session; }
  FakeDesk& desk() { return station.desk; }

  // Records in the order of their keys.
  template <class R>
  std::vector<R> all() {
    std::vector<R> records;
    tarvex::OpenArchive<R> archive(session(), 1, 2);
    archive->bof(0);
    while (archive->next(0) == store::kOk) records.push_back(archive->B);
    return records;
  }

  // Everything that is kept, packed: equal when nothing was changed.
  std::map<std::string, std::vector<std::string>> contents() {
    std::map<std::string, std::vector<std::string>> all;
    for (const char* prefix : {"mc", "tt", "iv", "ia", "ic", "sd", "st", "sf", "pc", "pr"}) {
      store::Handle handle = 0;
      session().store.VmxOpen(session().stem(prefix), handle);
      session().store.VmxBOF(handle, 0);
      store::Found found;
      while (session().store.VmxGet(handle, 0, store::Get::next, {}, found) == store::kOk)
        all[prefix].push_back(found.primaryKey + ":" + found.record);
      session().store.VmxClose(handle);
    }
    return all;
  }

  double saldo(const std::string& code) {
    REQUIRE(session().pc.search(0, code) == store::kOk);
    return session().pc.B.saldo;
  }

  int counter(const std::string& name) {
    return session().pr.search(0, name) == store::kOk ? session().pr.B.valore : -1;
  }

  void checkWhole() {
    for (const tarvex::Violation& violation : tarvex::verify(session()))
      if (!violation.notice) FAIL_CHECK(violation.rule, ": ", violation.text);
  }

  Scratch directory;
  Station station{directory.path()};
};

// A form of the books, with hands on it.
struct At {
  At(Books& books, const std::string& unit) : form(books.session().make(unit)), hands(*form) {
    hands.user.begin();
  }
  std::unique_ptr<ui::Form> form;
  Hands hands;
};

using Fields = std::vector<std::pair<std::string, std::string>>;

inline void fill(Hands& hands, const Fields& fields) {
  for (const auto& [name, text] : fields) hands.set(name, text);
}

// The next form of that unit revises the entry.
inline At revise(Books& books, const std::string& unit, const std::string& nummov) {
  books.session().EntryToRevise = nummov;
  return At(books, unit);
}

}  // namespace test
