#include "session/menu_tree.h"

namespace tarvex {
namespace {

using namespace menu;

MenuEntry companyMenu() {
  return submenu("&Azienda", "ma",
                 {
                     opens("&Scelta azienda", "ma1", "SCELTA", Guard::shortBox),
                     opens("&Nuova azienda", "ma3", "APRIAZ", Guard::shortBox),
                     acts("&Esci", "ma2", MenuAction::end),
                 });
}

MenuEntry registrationMenu() {
  return submenu("&Registrazione", "mb1",
                 {
                     opens("Movimento &generico", "mbb1", "MCMG"),
                     opens("Fattura &vendita", "mbb2", "mcfv"),
                     opens("Fattura &acquisto", "mbb3", "MCFA"),
                     opens("&Corrispettivo", "mbb4", "mcco"),
                     opens("Nota c&redito cliente", "mbb5", "mccv"),
                     opens("Nota cr&edito fornitore", "mbb6", "mcca"),
                     opens("&Incasso fattura", "mbb7", "MCIF"),
                     opens("&Pagamento fattura", "mbb8", "MCPF"),
                     opens("Ca&usali automatizzate", "mbb9", "MCXX"),
                     opens("Fa&ttura acquisto in Lire", "rege1", "MCFA3"),
                     opens("N&ota credito forn. in Lire", "rege2", "mcca3"),
                     opens("Movi&mento generico in Lire", "rege3", "MCMG3"),
                     opens("Inca&sso acconto", "inc1616", "MCIFAC"),
                     opens("Pagame&nto acconto", "paga6666s", "MCPFAC"),
                 });
}

MenuEntry journalMenu() {
  return submenu("&Prima nota", "mb",
                 {
                     registrationMenu(),
                     opens("&Visualizzazione", "mb2", "VMC"),
                     opens("R&evisione", "mb3", "AMC", W),
                     opens("&Stampa", "mb4", "STMC"),
                     opens("S&tampa controllo", "mb5", "STMC1"),
                     opens("&Causali automatizzate", "mb6", "regxx"),
                     opens("Veri&fica", "mb7", "VERPN"),
                     opens("V&ariazione riferimento partita", "mb8", "VARRIFP"),
                     opens("A&nnullamento singola registrazione", "mb9", "annsr", W),
                 });
}

MenuEntry assetsMenu() {
  return submenu("Beni a&mmortizzabili", "mc400",
                 {
                     opens("&Registrazione", "bex1", "REGBENE", W),
                     opens("&Variazione", "bex2", "VARBENE", W),
                     opens("V&isualizzazione", "bex3", "VISBENE"),
                     opens("&Annullamento", "bex4", "ANNBENE", W),
                     opens("&Stampa schede", "bex5", "STABENE"),
                     opens("A&mmortamento", "bex6", "AMMBENE", W),
                     opens("Annullament&o ammortamento", "bex7", "ANNAMM", W),
                     opens("&Riepilogo", "bex8", "RIEPBENE"),
                     opens("&Elenco", "bex9", "ELENBENE"),
                     opens("&Piano amm. manuale", "bex10", "PIANOBENE", W),
                     opens("&Dismissione", "bex11", "DIMISBENE", W),
                 });
}

MenuEntry withholdingMenu() {
  return submenu("Rite&nute d'acconto", "mc241",
                 {
                     opens("&Registrazione", "rit1", "REGRA", W),
                     opens("&Visualizzazione", "rit2", "VISRA"),
                     opens("R&iepilogo", "rit3", "STARA"),
                     opens("&Stampa certificazione", "rit4", "STARA2"),
                     opens("&Annullamento", "rit5", "ANNRA", W),
                 });
}

MenuEntry ledgerMenu() {
  return submenu("&Contabilità", "mc",
                 {
                     opens("&Visualizzazione scheda", "mc1", "visched"),
                     opens("&Stampa scheda", "mc2", "STSCHED"),
                     opens("V&isualizz. estratto conto", "mc3", "vec"),
                     opens("S&tampa estratto conto", "mc5", "STEC"),
                     opens("Stampa &bilancio", "mc6", "BIL"),
                     opens("&Giornale contabilità", "mc7", "STGC"),
                     opens("&Progressivi contabili", "mc8", "PROGRES"),
                     opens("&Dati aziendali", "mc12", "REGDATI"),
                     opens("&Registraz. dati bilancio CEE", "mc14", "REGCEE"),
                     opens("Bi&lancio CEE", "mc15", "Foglio", Guard::none, "bilancio"),
                     assetsMenu(),
                     withholdingMenu(),
                 });
}

MenuEntry chartMenu() {
  return submenu("P&iano conti", "md",
                 {
                     opens("&Registrazione", "md1", "RPC"),
                     opens("&Variazione", "md2", "VARPC"),
                     opens("V&isualizzazione", "md3", "VISPC"),
                     opens("&Annullamento", "md4", "anpc", W),
                     opens("&Stampa", "md5", "STPC"),
                     opens("Ric&ostruzione progressivi", "mc9", "RICO", W),
                     opens("S&ottoconti più usati", "mc200", "REGFACIL"),
                     opens("&Trova cliente/fornitore", "trovaccc", "TROVA"),
                 });
}

MenuEntry vatMenu() {
  return submenu("I&va", "me",
                 {
                     opens("&Registrazione tabella", "me1", "rtiva", W),
                     opens("&Visualizzazione tabella", "mivax1", "vistiva"),
                     opens("R&egistro iva vendite", "mivax2", "STRIV"),
                     opens("Re&gistro iva acquisti", "mivax3", "STRIA"),
                     opens("Registr&o iva corrispettivi", "mivax4", "STRIC"),
                     opens("&Liquidazione ", "mivax5", "LIQIVA"),
                     opens("L&iquidazione annuale", "mivax6", "LIQIVA1"),
                     opens("Li&quidazione singolo registro", "mivax7", "LIQIVASR"),
                     opens("&Situazione iva", "mivax8", "VIVA"),
                     opens("Rie&pilogo corrispettivi", "mivax9", "RIEPCORR"),
                     opens("Registra&z. credito anno prec.", "mivax10", "REGCRED"),
                     opens("&Allegato clienti", "mivax11", "elc"),
                     opens("Allega&to fornitori", "mivax12", "ELF"),
                     opens("Riepilogo &dati mod. intra", "mivax13", "STINTRA"),
                     opens("Registrazione &manuale", "mivax14", "RMIVA"),
                     opens("A&nnullamento registrazione", "mivax15", "ANNRIVA"),
                     opens("Variazione saldo iva", "varsi442442", "varsi", W),
                 });
}

MenuEntry dueDatesMenu() {
  return submenu("&Scadenzari", "ss",
                 {
                     opens("&Registrazione", "ss11", "REGSCA"),
                     opens("&Variazione", "ss12", "VARSCA"),
                     opens("V&isualizzazione", "ss13", "VISSCA"),
                     opens("&Stampa", "ss14", "STSCAD"),
                 });
}

MenuEntry customersMenu() {
  return submenu("C&lienti", "mq",
                 {
                     opens("V&isualizzazione", "mq11", "VISCLI"),
                     opens("&Registrazione", "mq12", "RCLIENTE"),
                     opens("&Variazione", "mq13", "VARCLI"),
                     opens("&Stampa parametrica", "mq14", "SPS"),
                     opens("Solleciti di &pagamento", "mq15", "SOLL"),
                 });
}

MenuEntry suppliersMenu() {
  return submenu("&Fornitori", "mr",
                 {
                     opens("V&isualizzazione", "mr11", "VISFORN"),
                     opens("&Registrazione", "mr12", "RFORN"),
                     opens("&Variazione", "mr13", "VARFORN"),
                     opens("&Stampa parametrica", "mr14", "SPSFORN"),
                 });
}

MenuEntry agentsMenu() {
  return submenu("A&genti", "ms",
                 {
                     opens("V&isualizzazione", "age1", "VISAGEN"),
                     opens("&Registrazione", "age2", "RFORN", Guard::none, kAgents),
                     opens("&Variazione", "age3", "VARFORN", Guard::none, kAgents),
                     opens("&Stampa parametrica", "age4", "SPSFORN", Guard::none, kAgents),
                     opens("R&egistrazione provvigioni", "age5", "REGPROVV"),
                     opens("V&ariazione provvigioni", "age6", "VARPROVV"),
                     opens("Visuali&zzazione provvigioni", "age7", "VISPROVV"),
                     opens("Stampa &provvigioni", "age8", "STAPROVV"),
                     opens("Provvigioni a &buon fine", "age9", "STAPBF"),
                     opens("Stampa &fatturato agenti", "age10", "STAFAD"),
                     opens("Stampa &ordini agenti", "age11", "staordag"),
                 });
}

}  // namespace

const std::vector<MenuEntry>& menuTree() {
  static const std::vector<MenuEntry> tree{
      companyMenu(),   journalMenu(),   ledgerMenu(),    chartMenu(),  vatMenu(),
      dueDatesMenu(),  customersMenu(), suppliersMenu(), agentsMenu(), warehouseMenu(),
      documentsMenu(), variousMenu(),   helpMenu(),
  };
  return tree;
}

}  // namespace tarvex
