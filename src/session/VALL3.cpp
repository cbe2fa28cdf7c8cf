// Riparazione archivi danneggiati: one archive, chosen as a file.
#include <filesystem>
#include <sstream>

#include "archives/catalogue.h"
#include "common/text.h"
#include "session/forms.h"
#include "session/maintenance.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

class Vall3 : public Form {
 public:
  explicit Vall3(Session& session);
  Layout layout() const override {
    return column({row({archivio, sfoglia}), elenco, buttons({ripara, annulla})});
  }

 private:
  std::string stem() const;
  int code() const;
  std::string prefix() const;
  void add(std::string line);
  void browse();
  void repair();
  void showReport(const std::string& report);

  Session& session_;
  std::vector<std::vector<std::string>> lines_;
  Field archivio{*this, "archivio", "Archivio da riparare", Mask::text(260)};
  Button sfoglia{*this, "sfoglia", "&Sfoglia"};
  List elenco{*this, "elenco", "Riparazione", {{"Esito", 60}}};
  Button ripara{*this, "ripara", "&Ripara", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Vall3::Vall3(Session& session)
    : Form(session.desk(), "VALL3", "Riparazione archivi danneggiati"), session_(session) {
  sfoglia.onPress = [this] { browse(); };
  ripara.onPress = [this] { repair(); };
  annulla.onPress = [this] { close(); };
}

// A name without directory lies where the archives do.
std::string Vall3::stem() const {
  std::filesystem::path path(common::trim(archivio.text()));
  if (path.is_relative()) path = session_.DataDirectory / path;
  return path.replace_extension().string();
}

int Vall3::code() const {
  const auto* entry = archives::entryOf(std::filesystem::path(stem()).filename().string());
  return entry ? entry->code : 0;
}

std::string Vall3::prefix() const {
  const std::string name = std::filesystem::path(stem()).filename().string();
  const auto* entry = archives::entryOf(name);
  return entry ? std::string(entry->prefix) : name;
}

void Vall3::add(std::string line) {
  lines_.push_back({std::move(line)});
  elenco.setRows(lines_);
  elenco.select(static_cast<int>(lines_.size()) - 1);
}

void Vall3::browse() {
  const auto chosen = desk().chooseFile(title(), "Archivio(*.isd)|*.isd", false, session_.DataDirectory);
  if (!chosen) return;
  archivio.setText(*chosen);
  lines_.clear();
  const Busy busy(desk());
  const ArchivesLetGo letGo(session_);
  add(maintenanceLine(session_.store.VTVal(stem()), prefix()));
}

void Vall3::repair() {
  if (common::trim(archivio.text()).empty())
    return desk().refuse("Non è stato selezionato l'archivio", archivio);
  const Busy busy(desk());
  const ArchivesLetGo letGo(session_);
  std::string report;
  constexpr std::size_t kSteps = 1000;
  const store::Progress progress = [this](double part) {
    desk().progress(static_cast<std::size_t>(part * kSteps), kSteps);
  };
  session_.store.VTRepair(stem(), report, progress);
  session_.CheckArchiveResult(store::Operation::write, code(), 710);
  showReport(report);
}

void Vall3::showReport(const std::string& report) {
  constexpr std::string_view kKept = "Grp=", kLost = "Perso=";
  std::istringstream lines(report);
  for (std::string line; std::getline(lines, line);) {
    if (const auto at = line.find(kKept); at != std::string::npos)
      add("Gruppi recuperati: " + line.substr(at + kKept.size()));
    if (line.starts_with(kLost)) add("Record perduto: " + line.substr(kLost.size()));
  }
}

}  // namespace

std::unique_ptr<Form> makeVall3(Session& session) { return std::make_unique<Vall3>(session); }

}  // namespace tarvex
