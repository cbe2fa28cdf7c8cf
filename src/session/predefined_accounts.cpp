#include "session/predefined_accounts.h"

#include <array>
#include <string>

namespace tarvex {
namespace {

constexpr std::array<PredefinedAccount, 22> kAccounts{{
    {"00001", "Crediti", "m", "p", "00001", ""},
    {"00002", "Debiti", "m", "p", "00002", ""},
    {"00003", "Ricavi", "m", "e", "00003", ""},
    {"00004", "Costi", "m", "e", "00004", ""},
    {"00005", "Crediti clienti", "cc", "p", "00001", "00005"},
    {"00006", "Debiti verso fornitori", "cc", "p", "00002", "00006"},
    {"00007", "Agenti", "cc", "p", "00002", "00007"},
    {"00008", "Imposta Valore Aggiunto", "cc", "p", "00002", "00008"},
    {"00009", "Ricavi diversi", "cc", "e", "00003", "00009"},
    {"00010", "Costi diversi", "cc", "e", "00004", "00010"},
    {"00011", "Iva acquisti", "s", "p", "00002", "00008"},
    {"00012", "Iva vendite", "s", "p", "00002", "00008"},
    {"00013", "Iva corrispettivi", "s", "p", "00002", "00008"},
    {"00014", "Iva indetraibile", "s", "p", "00002", "00008"},
    {"00015", "Abbuoni su acquisti", "s", "e", "00003", "00009"},
    {"00016", "Rivalsa spese trasporto", "s", "e", "00003", "00009"},
    {"00017", "Rivalsa spese imballo", "s", "e", "00003", "00009"},
    {"00018", "Rivalsa spese varie", "s", "e", "00003", "00009"},
    {"00019", "Rivalsa spese bollo", "s", "e", "00003", "00009"},
    {"00020", "Abbuoni su vendite", "s", "e", "00004", "00010"},
    {"00021", "Portafoglio effetti", "cc", "p", "00001", "00021"},
    {"00022", "Crediti clienti ric. bancarie", "s", "p", "00001", "00021"},
}};

// Mastro, conto and sottoconto, with zeros for a level that does not exist.
std::string fullCode(const PredefinedAccount& account) {
  std::string code(account.mastro);
  code.append(account.conto.empty() ? "00000" : account.conto);
  code.append(account.kind == "s" ? account.key : "00000");
  return code;
}

}  // namespace

std::span<const PredefinedAccount> predefinedAccounts() { return kAccounts; }

rec::pc recordOf(const PredefinedAccount& account) {
  rec::pc record;
  record.ragsoc = account.name;
  record.tipo = account.kind;
  record.natura = account.nature;
  record.mastro = account.mastro;
  record.conto = account.conto;
  record.codice = fullCode(account);
  record.chiavetipo = (account.kind == "s" ? "s" : "x") + record.ragsoc;
  record.chiavegruppo = "ss" + record.ragsoc;
  return record;
}

}  // namespace tarvex
