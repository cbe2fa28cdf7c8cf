// Annullamento registrazione nel registro iva: deletes the VAT rows of one number. Journal lines stay.
#include "archives/ia.h"
#include "archives/ic.h"
#include "archives/iv.h"
#include "ledger/forms.h"
#include "ledger/vat_rows.h"
#include "session/scan.h"
#include "store/group.h"
#include "ui/form.h"

namespace tarvex {
namespace {

using namespace ui;

constexpr std::array<VatSide, 3> kSides{VatSide::purchases, VatSide::sales, VatSide::receipts};

// The primary keys of the rows that `belongs`; nothing when the archive cannot be read, which has been
// reported.
template <class R, class Belongs>
std::optional<std::vector<std::string>> keysOf(Session& session, const Belongs& belongs) {
  std::vector<std::string> keys;
  const bool read = scan<R>(session, 2808, 2809, 2810, [&](const archives::Archive<R>& archive) {
    if (belongs(archive.B)) keys.push_back(archive.primaryKey());
  });
  if (!read) return {};
  return keys;
}

template <class R>
bool erase(Session& session, const std::vector<std::string>& keys) {
  store::Group group(session.store, session.groupLog(), archives::Layout<R>::code, 2811);
  session.pr.spinLock("mc");
  OpenArchive<R> archive(session, 2812, 2813);
  for (const std::string& key : keys) {
    const store::Code result = archive->erase(key);
    if (result != store::kNotFound)  // another station was faster
      session.CheckArchiveResult(store::Operation::erase, archive->code, 2814);
  }
  archive->flush();
  session.pr.unlock("mc");
  return group.commit();
}

class Annriva : public Form {
 public:
  explicit Annriva(Session& session);
  Layout layout() const override;

 private:
  void cancel();
  template <class R>
  void cancelIn(std::string R::*number);

  Session& session_;
  Field registro{*this, "registro", "Registro:", Mask::oneOf("123456789")};
  Field numero{*this, "numero", "Numero protocollo:", Mask::digits(5)};
  Choice tipo{
      *this, "tipo", "Tipo:", Choice::Look::options, {"Ac&quisti", "&Vendite", "&Corrispettivi"}};
  Button ok{*this, "ok", "&OK", Button::Role::main};
  Button annulla{*this, "annulla", "&Annulla", Button::Role::cancel};
};

Annriva::Annriva(Session& session)
    : Form(session.desk(), "ANNRIVA", "Annullamento registrazione nel registro iva"), session_(session) {
  registro.setText("1");
  tipo.select(0);
  tipo.onChange = [this] {
    if (tipo.index() < 0) tipo.select(0);
  };
  ok.onPress = [this] { cancel(); };
  annulla.onPress = [this] { close(); };
}

Layout Annriva::layout() const {
  return column({row({registro, numero}), row({tipo}), space(), buttons({ok, annulla})});
}

void Annriva::cancel() {
  switch (kSides[static_cast<std::size_t>(tipo.index())]) {
    case VatSide::purchases:
      return cancelIn<rec::ia>(&rec::ia::protocollo);
    case VatSide::sales:
      return cancelIn<rec::iv>(&rec::iv::numero);
    case VatSide::receipts:
      return cancelIn<rec::ic>(&rec::ic::numero);
  }
}

template <class R>
void Annriva::cancelIn(std::string R::*number) {
  const std::string wanted = registerNumber(numero.text());
  const auto keys = keysOf<R>(
      session_, [&](const R& row) { return row.registro == registro.text() && row.*number == wanted; });
  if (!keys) return;
  if (keys->empty()) return desk().warn("Non è stata trovata nessuna registrazione corrispondente");
  const std::string question =
      "Sono state trovate n." + std::to_string(keys->size()) + " registrazione/i. Si vogliono annullare?";
  if (!desk().confirm(question)) return;
  if (erase<R>(session_, *keys)) numero.clear(), numero.focus();
}

}  // namespace

std::unique_ptr<Form> makeAnnriva(Session& session) { return std::make_unique<Annriva>(session); }

}  // namespace tarvex
