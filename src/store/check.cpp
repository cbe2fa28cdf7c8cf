#include "store/check.h"

#include <array>

#include "common/text.h"

namespace store {
namespace {

constexpr std::array<std::string_view, 7> kOperations{
    "creazione archivi", "apertura file",      "chiusura file",        "registrazione dati",
    "lettura dati",      "cancellazione dati", "cancellazione archivi"};

constexpr std::array<std::string_view, 36> kArchives{"piano conti",
                                                     "ct",
                                                     "azienda",
                                                     "progressivi",
                                                     "iva vendite",
                                                     "iva acquisti",
                                                     "iva corrisp.",
                                                     "mov. contabili",
                                                     "codici iva",
                                                     "auto prima nota",
                                                     "saldi iva",
                                                     "documenti",
                                                     "fatt.",
                                                     "magazzino",
                                                     "movim. magazzino",
                                                     "agente",
                                                     "scad. clienti rd",
                                                     "scad. clienti rb",
                                                     "scad. fornitori",
                                                     "codici pag.",
                                                     "agenda",
                                                     "parametri",
                                                     "modulo",
                                                     "scelta modulo",
                                                     "tt",
                                                     "schema documento",
                                                     "bilancio cee",
                                                     "lifo",
                                                     "modulo rb",
                                                     "prodotto finito",
                                                     "componente",
                                                     "movimento componenti",
                                                     "file FF",
                                                     "beni amm.",
                                                     "ritenute acconto",
                                                     "posta"};

// The word at `number`, counted from 1; empty outside the table.
template <std::size_t N>
std::string wordAt(const std::array<std::string_view, N>& words, int number) {
  return number < 1 || number > static_cast<int>(N) ? std::string() : std::string(words[number - 1]);
}

struct Cause {
  Code code;
  std::string_view words, title;
};

constexpr std::array<Cause, 5> kCauses{{{kNoMemory, "OUT OF MEMORY", "Tarvex"},
                                        {kDiskFull, "DISCO PIENO", "Errore"},
                                        {kSystem, "ERRORE DOS", "Errore"},
                                        {kDisk, "ERRORE DISCO", "Errore"},
                                        {kTooManyFiles, "TROPPI FILE APERTI", "Errore"}}};

}  // namespace

ArchiveFailure describeFailure(Code code, Operation operation, int archive, int position) {
  ArchiveFailure failure;
  failure.code = code;
  for (const Cause& cause : kCauses) {
    if (cause.code != code) continue;
    failure.cause = cause.words;
    failure.causeTitle = cause.title;
  }
  const std::string error = "Errore: " + common::numberText(code);
  const std::string done = "Operazione: " + wordAt(kOperations, static_cast<int>(operation));
  const std::string where = "Archivio: " + wordAt(kArchives, archive);
  const std::string place = "Posizione: " + common::numberText(position);
  failure.message = error + '\r' + done + '\r' + where + '\r' + place;
  failure.title = "Errore durante operazione sugli archivi";
  failure.logLine = error + ' ' + done + ' ' + where + ' ' + place;
  return failure;
}

}  // namespace store
