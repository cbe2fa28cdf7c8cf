// Parametri di gestione: the parameters of the installation, and where its archives lie.
#include <filesystem>

#include "common/text.h"
#include "parameters/forms.h"
#include "parameters/pages.h"
#include "session/startup.h"
#include "session/text_file.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr std::string_view kUsualFont = "Courier New", kSingleStation = "mono";

class Parges : public Form {
 public:
  explicit Parges(Session& session);
  Layout layout() const override;
  void load() override;

 private:
  void confirm();
  bool keep(const rec::param& parameters);
  void chooseServer();
  std::string addressFile() const { return (session_.options().programDirectory / "rr").string(); }

  enum Station { single, network };

  Session& session_;
  Bindings bindings_;
  rec::param loaded_;
  Tabs tabs{*this,
            "tabs",
            {"&Aspetto", "&Stampa", "&Documenti", "&Iva", "&Magazzino", "&Ricerche", "&Telefono", "&Elenchi",
             "Rete in &uso"}};
  parges::LookPage look{*this, bindings_};
  parges::PrintPage print{*this, bindings_};
  parges::DocumentsPage documents{*this, session_, bindings_};
  parges::VatPage vat{*this, session_, bindings_};
  parges::WarehousePage warehouse{*this, bindings_};
  parges::SearchPage search{*this, bindings_};
  parges::TelephonePage telephone{*this, bindings_};
  parges::ListsPage lists{*this, bindings_};
  Choice station{*this, "postazione", {}, Choice::Look::options, {"Monoutente", "Rete"}};
  Field server{*this, "percorsorete", "Percorso completo del programma (Tarvex.exe) sul server",
               Mask::text(200)};
  Button browse{*this, "sfogliarete", "Sfoglia..."};
  Label nextStart{*this, "avviso2"};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "A&nnulla", Button::Role::cancel};
};

Parges::Parges(Session& session)
    : Form(session.desk(), "PARGES", "Parametri di gestione"), session_(session) {
  nextStart.setText("Dopo aver confermato riavviare  il programma per rendere effettiva la scelta");
  browse.onPress = [this] { chooseServer(); };
  ok.onPress = [this] { confirm(); };
  annulla.onPress = [this] { close(); };
}

Layout Parges::layout() const {
  return column(
      {ui::tabs(tabs, {look.layout(), print.layout(), documents.layout(), vat.layout(), warehouse.layout(),
                       search.layout(), telephone.layout(), lists.layout(),
                       group("Postazioni", {row({station}), row({server, browse}), row({nextStart})})}),
       buttons({ok, annulla})});
}

// From the record as it stands: another station may have changed it since the start. Where it cannot be read
// nothing is shown that could be written over it.
void Parges::load() {
  OpenArchive<rec::param> param(session_, 210, 211);
  param->search(0, "1");
  session_.CheckArchiveResult(store::Operation::read, param->code, 212);
  if (session_.store.LastArchiveResult != store::kOk) return close();
  loaded_ = param->B;
  if (loaded_.maxricerca == 0) loaded_.maxricerca = session_.param.maxricerca;
  bindings_.show(loaded_);
  bool alone = true;
  const std::string directory = dataDirectory(session_.options(), alone);
  station.select(alone ? single : network);
  if (!alone) server.setText(directory);
}

void Parges::confirm() {
  const std::string path = common::trim(server.text());
  if (station.index() == network && path.empty())
    return desk().refuse("Non è stato inserito il percorso di rete", server);
  rec::param parameters = loaded_;
  bindings_.take(parameters);
  if (parameters.carattere.empty()) parameters.carattere = kUsualFont;
  if (!keep(parameters)) return;
  if (!writeLine(addressFile(), station.index() == network ? path : std::string(kSingleStation)))
    return desk().refuse("Non è stato possibile scrivere il file " + addressFile(), station);
  close();
}

bool Parges::keep(const rec::param& parameters) {
  OpenArchive<rec::param> param(session_, 213, 214);
  param->A = parameters;
  param->put("1", store::Put::write);
  session_.CheckArchiveResult(store::Operation::write, param->code, 215);
  if (session_.store.LastArchiveResult != store::kOk) return false;
  param->flush();
  param->search(0, "1");
  session_.CheckArchiveResult(store::Operation::read, param->code, 216);
  if (session_.store.LastArchiveResult != store::kOk) return false;
  // The decimals are the next start's: amounts that are on a screen now were entered with the old ones.
  const auto parts = session_.param.decimalicomponenti, prices = session_.param.decimaliprezzi;
  session_.param = param->B;
  session_.param.decimalicomponenti = parts;
  session_.param.decimaliprezzi = prices;
  applyParameters(session_);
  desk().frameChanged();
  return true;
}

// What is picked is the program; what counts is the directory that it lies in.
void Parges::chooseServer() {
  const auto program = desk().chooseFile("Tarvex", "TARVEX.EXE", false);
  if (program) server.setText(std::filesystem::path(*program).parent_path().string());
}

}  // namespace

std::unique_ptr<Form> makeParges(Session& session) { return std::make_unique<Parges>(session); }

}  // namespace tarvex
