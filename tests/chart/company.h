// A company as APRIAZ leaves it, in memory's speed, with short names for what stands in its chart.
#pragma once

#include <span>
#include <string>

#include "chart/voice.h"
#include "common/text.h"
#include "session/company.h"
#include "session/installation.h"
#include "session/new_company.h"
#include "session/session.h"
#include "tools/scratch.h"
#include "ui/fake_desk.h"

namespace test {

class Company {
 public:
  Company() {
    session.DataDirectory = directory.path().string() + "/";
    if (!tarvex::ensureInstallation(session)) throw std::logic_error("no installation");
    session.dataz.open(session.stem("dataz"));
    session.civa.open(session.stem("civa"));
    std::string code;
    const tarvex::NewCompany company{"Prova", "", "", "", "2003"};
    if (tarvex::takeSlot(session, company, code) != tarvex::Slot::taken) throw std::logic_error("no slot");
    tarvex::makeCompany(session, company, code);
    session.param.completamento = 1;
  }

  Scratch directory;
  FakeDesk desk;
  tarvex::Session session{
      {directory.path(), directory.path(), TARVEX_SOURCE_DIR "/data", common::Clock("15/04/2003", "10:30")},
      desk,
      {}};

  // A voice as its screen would have written it, under the next code.
  std::string add(const std::string& tipo, const std::string& name, const std::string& city = {}) {
    ++last_;
    rec::pc& voice = session.pc.A;
    voice = {};
    voice.ragsoc = name;
    voice.tipo = tipo;
    voice.citta = city;
    tarvex::setGroupKeys(voice);
    session.pc.put(lastCode(), store::Put::write);
    return lastCode();
  }
  std::string lastCode() const { return common::zeroFill(last_, 5); }

  const rec::pc& voice(const std::string& code) {
    if (session.pc.search(0, code) != store::kOk) throw std::logic_error("no voice " + code);
    return session.pc.B;
  }

  int counter() { return session.pr.search(0, "conto") == store::kOk ? session.pr.B.valore : -1; }

 private:
  int last_ = 60000;
};

}  // namespace test
