#include "ledger/vat_rows.h"

#include <vector>

#include "archives/ia.h"
#include "archives/ic.h"
#include "archives/iv.h"
#include "common/date.h"
#include "common/text.h"

namespace tarvex {
namespace {

using archives::Archive;

constexpr int kByNumber = 2;  // of iv

bool isOf(const rec::iv& row, const VatDocument& document) {
  return common::DateToKey(row.datareg) == document.datareg && row.conto == document.conto;
}
bool isOf(const rec::ia& row, const VatDocument& document) {
  return common::DateToKey(row.datareg) == document.datareg && row.conto == document.conto;
}
bool isOf(const rec::ic& row, const VatDocument& document) { return row.datareg == document.datareg; }

// Calls `use` with the archive of that side, open, and its index by register and number.
template <class Use>
auto withRows(Session& session, VatSide side, const Use& use) {
  if (side == VatSide::purchases) {
    OpenArchive<rec::ia> ia(session, 1530, 1531);
    return use(*ia, 11);
  }
  if (side == VatSide::receipts) {
    OpenArchive<rec::ic> ic(session, 1532, 1533);
    return use(*ic, 10);
  }
  OpenArchive<rec::iv> iv(session, 1534, 1535);
  return use(*iv, 10);
}

template <class R>
bool isTaken(Archive<R>& archive, int index, std::string_view key, const std::optional<VatDocument>& except) {
  if (archive.search(index, key) != store::kOk) return false;
  do {
    if (!except || archive.B.chiavereg != except->chiavereg || !isOf(archive.B, *except)) return true;
  } while (archive.next(index) == store::kOk && archive.indexKey() == key);
  return false;
}

}  // namespace

std::optional<VatSide> vatSideOf(std::string_view causale) {
  if (causale == "fv" || causale == "cv") return VatSide::sales;
  if (causale == "fa" || causale == "ca") return VatSide::purchases;
  if (causale == "co") return VatSide::receipts;
  return {};
}

std::string registerNumber(std::string_view number) { return common::right(common::zeroFill(number, 5), 5); }

std::optional<VatDocument> vatDocumentOf(const rec::mc& firstLine) {
  const auto side = vatSideOf(firstLine.causale);
  if (!side) return {};
  const std::string& number = *side == VatSide::purchases ? firstLine.protocollo : firstLine.numdoc;
  return VatDocument{*side, firstLine.registro + registerNumber(number), firstLine.datareg, firstLine.conto};
}

bool isNumberTaken(Session& session, VatSide side, std::string_view chiavereg,
                   const std::optional<VatDocument>& except) {
  return withRows(session, side,
                  [&](auto& archive, int index) { return isTaken(archive, index, chiavereg, except); });
}

bool isSalesNumberTaken(Session& session, std::string_view numero, const std::optional<VatDocument>& except) {
  OpenArchive<rec::iv> iv(session, 1536, 1537);
  return isTaken(*iv, kByNumber, numero, except);
}

void removeVatRows(Session& session, const VatDocument& document) {
  withRows(session, document.side, [&](auto& archive, int index) {
    std::vector<std::string> keys;
    if (archive.search(index, document.chiavereg) != store::kOk) return;
    do {
      if (isOf(archive.B, document)) keys.push_back(archive.primaryKey());
    } while (archive.next(index) == store::kOk && archive.indexKey() == document.chiavereg);
    for (const std::string& key : keys) {
      archive.erase(key);
      session.CheckArchiveResult(store::Operation::erase, archive.code, 1538);
    }
    archive.flush();
  });
}

}  // namespace tarvex
