#include "session/menu_tree.h"

namespace tarvex::menu {
namespace {

MenuEntry movementsMenu() {
  return submenu("&Magazzino", "mu1",
                 {
                     opens("&Visualizzazione magazzino", "mua1", "VISMAG1"),
                     opens("&Registrazione movimento", "mua2", "REGMOVM"),
                     opens("Variazione &esistenza iniziale", "mua3", "REGES"),
                     opens("Variazione &scorta minima", "mua4", "REGSM"),
                     opens("Variazione &prezzo acquisto", "mua5", "VARPA"),
                 });
}

MenuEntry priceListsMenu() {
  return submenu("&Listini", "mu14",
                 {
                     opens("&Variazione prezzo di listino", "ml11", "VARLIST"),
                     opens("&Stampa listino prezzi", "ml12", "STALIST"),
                     opens("&Aggiorna listino", "ml13", "AGGLIST"),
                     opens("Stampa &listino calcolato", "ml14", "CALCLIST"),
                     opens("&Copia listino prezzi", "ml15", "COPIALIS"),
                     opens("Converti listino da Lire ad &Euro", "ml16", "LIST6"),
                 });
}

MenuEntry statisticsMenu() {
  return submenu("S&tatistiche", "mu15",
                 {
                     opens("&Venduto per articolo", "stat11", "STVXART"),
                     opens("Venduto per &cliente", "stat12", "STVXclix"),
                     opens("Venduto articoli per &agente", "stat13", "STAXAG"),
                     opens("Venduto articoli per &zona", "stat14", "STAXZONA"),
                     opens("Venduto articoli per &provincia", "stat15", "STAXPROV"),
                     opens("Venduto articoli per c&liente", "stat16", "STAXCLI"),
                     opens("Venduto articoli per p&eriodo", "stat17", "STAXper"),
                     opens("Ac&quistato per articolo", "stat18", "STAQXART"),
                     opens("Acquistato per &fornitore", "stat19", "STAQXFOR"),
                     opens("&Movimenti nel foglio elettronico", "stat110", "STAMOVM2"),
                 });
}

MenuEntry lifoMenu() {
  return submenu("Li&fo", "mu30",
                 {
                     opens("&Calcola Lifo", "mu30a1", "LIFO1"),
                     opens("&Modifica dati Lifo", "mu30a2", "LIFO2"),
                     opens("&Stampa Lifo", "mu30a3", "LIFO3"),
                     opens("&Dati iniziali Lifo", "mu30a4", "LIFO4"),
                 });
}

MenuEntry componentsMenu() {
  return submenu("Distinta &base", "dddddd",
                 {
                     opens("Re&gistrazione componente", "dx11", "REGCOMPO", W),
                     opens("&Variazione componente", "dx12", "VARCOMPO", W),
                     opens("V&isualizzazione componente", "dx13", "VISCOMPO"),
                     opens("Registrazione &prodotto finito", "dx14", "REGPROFI", W),
                     opens("Visuali&zzazione prodotto finito", "dx15", "VISPROFI"),
                     opens("&Stampa prodotto finito", "dx16", "STAPROFI"),
                     opens("&Annullamento prodotto finito", "dx17", "ANNPROFI", W),
                     opens("Registrazione &carico componente", "dx18", "REGCARCO", W),
                     opens("Registrazione scaric&o componente", "dx19", "REGscacc", W),
                     opens("Registrazione scarico a&utomatico", "dx110", "REGSCACO", W),
                     opens("Stampa &magazzino componenti", "dx111", "STAMAGCO"),
                     opens("Stampa componenti &fuori scorta", "dx112", "STASCOCO"),
                     opens("Stampa inv&entario componenti", "dx113", "STAINVCO"),
                     opens("S&tampa movimenti componenti", "dx114", "STAMOVCO"),
                     opens("Ricerca compo&nente", "dx115", "RICCOMP"),
                     opens("Verifica pro&duzione", "dx116", "VERPROD"),
                     opens("Commessa di p&roduzione", "dx117", "COMMESSA"),
                     opens("Annu&llamento movimenti componenti", "dx200", "ANNMOVCO", W),
                 });
}

MenuEntry serviceInvoicesMenu() {
  return submenu("&Fattura di servizio", "fatt55r7",
                 {
                     opens("&Emissione", "servy1", "EMSERV"),
                     opens("&Revisione", "servy2", "REVSERV"),
                     opens("&Visualizzazione", "servy3", "VISSERV"),
                 });
}

MenuEntry yearEndMenu() {
  return submenu("&Gestione fine/inizio anno", "mf",
                 {
                     opens("&Apertura archivi nuovo anno", "mf1", "APANNO", W),
                     opens("A&ggiornamento saldi iniziali", "mf2", "agg", W),
                     opens("&Chiusura conti economici", "mf3", "CHE", W),
                     opens("C&hiusura conti patrimoniali", "mf4", "CHP", W),
                     opens("&Trasferimento partite aperte", "mf5", "TRAPA", W),
                     opens("T&rasferimento documenti sospesi", "mf5a", "TRADOCS", W),
                     opens("&Bilancio apertura conti patrimoniali", "mf6", "BAP", W),
                 });
}

MenuEntry printModulesMenu() {
  return submenu("&Moduli ", "m7cc",
                 {
                     opens("&Registrazione modulo", "m7dd11", "REGMOD"),
                     opens("&Scelta moduli di stampa", "m7dd12", "SCELTAMO"),
                     opens("Stampa &tracciato per modulo", "m7dd13", "TRACMOD"),
                     opens("Modulo ricevuta &bancaria", "m7dd14", "REGRB"),
                 });
}

MenuEntry mailMenu() {
  return submenu("Pos&ta elettronica", "ppkkk",
                 {
                     opens("&Nuovo messaggio", "pppkk1", "POSTA1"),
                     opens("Messaggi &ricevuti", "pppkk2", "POSTA2"),
                     opens("Messaggi &inviati", "pppkk3", "POSTA3"),
                 });
}

}  // namespace

MenuEntry warehouseMenu() {
  return submenu("&Magazzino", "mu",
                 {
                     movementsMenu(),
                     opens("&Visualizzazione articolo", "mu2", "VISMAG"),
                     opens("&Registrazione articolo", "mu3", "REGMAG"),
                     opens("V&ariazione articolo", "mu4", "VARMAG"),
                     opens("A&nnullamento articolo", "mu7", "ANNMAG", W),
                     opens("Visuali&zzazione movimenti", "mu5", "VISMOVM"),
                     opens("&Stampa movimenti", "mu8", "STAMOVM"),
                     opens("Annullament&o movimenti", "mu6", "ANNMOVM", W),
                     opens("Stampa &parametrica articoli", "mu9", "STAPARM"),
                     opens("Stampa articoli f&uori scorta", "mu10", "STASCOR"),
                     opens("Stampa &inventario", "mu12", "STAINV"),
                     opens("Ri&costruzione progressivi", "mu13", "RICMAG", W),
                     opens("Aggiornamento sal&di iniziali", "agg55w67", "AGGMAG", W),
                     priceListsMenu(),
                     statisticsMenu(),
                     lifoMenu(),
                     opens("Trasferim&ento articoli", "mu11", "TRASMAG"),
                     opens("Apertura nuovo ma&gazzino", "mu21", "APMAG", W),
                     componentsMenu(),
                 });
}

MenuEntry documentsMenu() {
  return submenu("&Documenti", "mt",
                 {
                     opens("&Emissione", "mt1", "EMDOC"),
                     opens("E&missione da doc. precedente", "mt3", "PREDOC"),
                     opens("&Visualizzazione", "mt2", "VISDOC"),
                     opens("&Revisione", "mt10", "REVDOC"),
                     opens("R&istampa singola", "mt5", "RISTDOC"),
                     opens("Ri&stampa multipla", "mt5b", "RISTDOC2"),
                     opens("&Bolla vendita riepilogativa", "mt4", "BVRIEP"),
                     opens("&Fattura riepilogativa", "mt7", "RIEP"),
                     opens("&Annullamento", "mt6", "ANNDOC", W),
                     opens("&Documenti sospesi", "mt11", "DOCSOSP"),
                     opens("S&tampa ricevute bancarie", "mt12", "STRB"),
                     opens("Ri.ba. e&lettroniche", "mt13", "RIBA"),
                     opens("Re&gistrazione schema ", "mt14", "REGSCHE"),
                     serviceInvoicesMenu(),
                 });
}

MenuEntry variousMenu() {
  return submenu("Va&rie", "m7",
                 {
                     opens("&Agenda", "magend", "AGENDA"),
                     opens("R&ubrica", "rub21212", "RUBRICA"),
                     opens("Tarvex&Write", "mf20", "TVWRITE"),
                     opens("&Foglio elettronico", "m7ff", "Foglio"),
                     opens("&Parametri", "m7aa", "PARGES"),
                     opens("&Codice a barre", "codbra657w", "BARRE"),
                     opens("&Etichette", "etichet", "ETIC"),
                     opens("N&umerazione fogli", "numer33", "NUMERAZ"),
                     opens("C&ondizioni pagamento", "g2", "REGPAG"),
                     yearEndMenu(),
                     printModulesMenu(),
                     mailMenu(),
                     opens("&Registrazione immagine", "immag6667", "SCANN"),
                     opens("&Visualizz. immagine", "visli67m", "SCANN1"),
                     opens("Cambio pass&word", "passw12", "PASSW", W),
                     opens("Cop&ia archivi", "mf7", "COPIAPC"),
                     opens("&Duplica azienda", "duplic", "DUPLICA", W),
                     opens("Ca&ncellazione archivi", "m7c", "cancella", W),
                     opens("&Backup archivi", "back10", "BACK1", W),
                     opens("&Ripristino archivi", "back20", "BACK2", W),
                     opens("&Verifica archivi", "val1", "VALL1", W),
                     opens("R&icostruzione indici", "val2", "VALL2", W),
                     opens("Ripara arc&hivi", "val3", "VALL3", W),
                     opens("&Quadratura", "quadra", "quadra"),
                 });
}

MenuEntry helpMenu() {
  return submenu("?", "m8",
                 {
                     acts("Guida               F1", "fff1", MenuAction::help),
                     opens("&Dorlen Home Page", "dorlen1", "frmBrowser"),
                     opens("&Informazioni su ...", "m8b", "primo"),
                 });
}

}  // namespace tarvex::menu
